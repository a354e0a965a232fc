#!/usr/bin/env bash
# Completion over a live Python numeric session.
#   ./run.sh                      in a terminal: a session with completion on; otherwise a short demonstration
#   ./run.sh complete 'TEXT'      what may follow the text
#   ./run.sh members NAME         what a class, module or object offers
#   ./run.sh describe NAME|TEXT   all that is known about a class
#   ./run.sh what FOLDER KIND     what a folder on the search path holds
#   ./run.sh --help               all commands
# The first run installs what is missing and builds; later runs answer at once.
set -euo pipefail
asked_from=$PWD
cd "$(dirname "$(readlink -f "$0")")"
source scripts/setup.sh

prepare() {
  need_packages "${build_packages[@]}" "${session_packages[@]}"
  build_preset run
}
# Answers go to standard output; the set-up must not get in between.
prepare >&2

project=$PWD
export PYTHONPATH="$project/build/run/python${PYTHONPATH:+:$PYTHONPATH}"
cd "$asked_from"
python=/usr/bin/python3

if [ $# -gt 0 ]; then
  exec "$python" -m contextdata "$@"
fi
if [ -t 0 ] && [ -t 1 ]; then
  exec "$python" -q -i -c "import contextdata.session; contextdata.session.start(globals()); del contextdata"
fi
exec "$python" -m contextdata.demonstration
