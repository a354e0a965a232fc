"""What a person may choose, in IPython's own configuration."""

from traitlets import Bool, Enum, Int
from traitlets.config.configurable import Configurable


class ContextdataCompleter(Configurable):
    """Completion by contextdata."""

    policy = Enum(
        ("strict", "guarded", "full"),
        default_value="guarded",
        help="""How far what stands before a dot is evaluated: "strict" reads plain names and attributes, "guarded"
        also constant subscripts of lists, dictionaries, arrays and tables, and runs no code of yours either; "full"
        evaluates it as it stands, with all that this may do.""",
    ).tag(config=True)

    limit = Int(
        default_value=None,
        allow_none=True,
        min=1,
        help="The most names that are offered at a time; None for all of them.",
    ).tag(config=True)

    private_names = Bool(
        True,
        help="""Whether names that begin with an underscore are offered, as the last ones, before an underscore is
        typed. They are only ever offered to code that may use them.""",
    ).tag(config=True)

    matching = Bool(
        True,
        help="""Whether other letter case, letters left out and one typing mistake are forgiven when no name begins
        with what was typed.""",
    ).tag(config=True)
