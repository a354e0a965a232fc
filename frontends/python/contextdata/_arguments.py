"""What the command line understands."""

import argparse
import sys
from typing import NoReturn

_DESCRIPTION = "Lists the names that may follow a text or a live object, one a line, and describes classes."
_EPILOG = """exit status: 0 when the question was answered, also with no names; 2 when it could not be, with one line
that says why; 130 when interrupted.

examples:
  python3 -m contextdata complete 'import decimal; decimal.Dec'
  python3 -m contextdata members pathlib.Path --json
  python3 -m contextdata describe 'import pandas as pd; pd.DataFrame'
  python3 -m contextdata what '' packages
"""


class _OneLineParser(argparse.ArgumentParser):
    def error(self, message: str) -> NoReturn:
        print(f"contextdata: {message}; see python3 -m contextdata --help", file=sys.stderr)
        raise SystemExit(2)


def _columns(text: str) -> int:
    columns = int(text) if text.isdecimal() else 0
    if columns == 0:
        raise argparse.ArgumentTypeError(f"'{text}' is no number of columns")
    return columns


def read_arguments(arguments: list[str]) -> argparse.Namespace:
    """Reads the arguments: `command`, `json`, and `text`, `name`, `subject` and `width`, or `folder` and `kind`. Ends
    the program on --help and on mistakes."""
    parser = _OneLineParser(
        prog="python3 -m contextdata",
        description=_DESCRIPTION,
        epilog=_EPILOG,
        formatter_class=argparse.RawDescriptionHelpFormatter,
    )
    commands = parser.add_subparsers(dest="command", required=True, metavar="{complete,members,describe,what}")

    complete = commands.add_parser(
        "complete",
        help="names that may follow a text",
        description="Completes what follows the last newline or semicolon of TEXT. The statements before it are RUN "
        "first, in a fresh namespace, with what they print on the error stream; the rest is only read.",
    )
    complete.add_argument("text", metavar="TEXT", help="statements, and the expression to complete at the end")

    members = commands.add_parser(
        "members",
        help="what a module, class or object offers",
        description="Lists the members of what NAME leads to. The modules that it names are imported.",
    )
    members.add_argument("name", metavar="NAME", help="a dotted name, such as decimal.Decimal")

    describe = commands.add_parser(
        "describe",
        help="all that is known about a class",
        description="Describes a class, or an object by its class: where it is defined, what it derives from, its "
        "members with their access, types and values.",
    )
    describe.add_argument(
        "subject",
        metavar="NAME|TEXT",
        help="a dotted name, the modules of which are imported; or statements, which are RUN, and such a name",
    )
    describe.add_argument(
        "--width", type=_columns, metavar="N", help="cut lines to N columns; else those of the terminal, if it is one"
    )

    what = commands.add_parser(
        "what",
        help="what lies in a folder",
        description="Lists the entries of one kind in every folder of the search path, sys.path, that FOLDER names.",
    )
    what.add_argument("folder", metavar="FOLDER", help="the name of a folder on the search path; '' for the working folder")
    what.add_argument("kind", metavar="KIND", help="classes, packages, .k or .qxe")

    for command in (complete, members, describe, what):
        command.add_argument("--json", action="store_true", help="print one JSON text instead of columns")
    return parser.parse_args(arguments)
