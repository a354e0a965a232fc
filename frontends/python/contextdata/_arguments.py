"""What the command line understands."""

import argparse
import sys
from typing import NoReturn

_DESCRIPTION = "Lists the names that may follow a text or a live object, one a line: name, kind, declaring class."
_EPILOG = """exit status: 0 when the question was answered, also with no names; 2 when it could not be, with one line
that says why; 130 when interrupted.

examples:
  python3 -m contextdata complete 'import decimal; decimal.Dec'
  python3 -m contextdata members pathlib.Path --json
"""


class _OneLineParser(argparse.ArgumentParser):
    def error(self, message: str) -> NoReturn:
        print(f"contextdata: {message}; see python3 -m contextdata --help", file=sys.stderr)
        raise SystemExit(2)


def read_arguments(arguments: list[str]) -> argparse.Namespace:
    """Reads the arguments: `command`, `json`, and `text` or `name`. Ends the program on --help and on mistakes."""
    parser = _OneLineParser(
        prog="python3 -m contextdata",
        description=_DESCRIPTION,
        epilog=_EPILOG,
        formatter_class=argparse.RawDescriptionHelpFormatter,
    )
    commands = parser.add_subparsers(dest="command", required=True, metavar="{complete,members}")

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

    for command in (complete, members):
        command.add_argument("--json", action="store_true", help="print one JSON text instead of columns")
    return parser.parse_args(arguments)
