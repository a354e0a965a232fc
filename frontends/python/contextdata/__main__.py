"""`python3 -m contextdata`."""

import sys

from contextdata._command_line import main

if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
