#!/usr/bin/env bash
# Completion over a live Python numeric session.
#   ./run.sh                      in a terminal: an IPython session with completion on; otherwise a short demonstration
#   ./run.sh --plain              the same at the plain Python prompt
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

sort=command
if [ $# -eq 0 ]; then
  sort=demonstration
  [ -t 0 ] && [ -t 1 ] && sort=ipython
elif [ "$1" = --plain ]; then
  [ $# -eq 1 ] || { echo "contextdata: --plain stands alone; leave out '${*:2}'" >&2; exit 2; }
  sort=plain
fi

prepare() {
  need_packages "${build_packages[@]}" "${session_packages[@]}"
  [ "$sort" != ipython ] || need_packages "${ipython_packages[@]}"
  build_preset run
}
# Answers go to standard output; the set-up must not get in between.
prepare >&2

project=$PWD
export PYTHONPATH="$project/build/run/python${PYTHONPATH:+:$PYTHONPATH}"
cd "$asked_from"
python=/usr/bin/python3

case $sort in
  command) exec "$python" -m contextdata "$@" ;;
  demonstration) exec "$python" -m contextdata.demonstration ;;
  ipython) exec "$python" -m contextdata.session ;;
  plain) exec "$python" -q -i -c "import contextdata.session; contextdata.session.start(globals()); del contextdata" ;;
esac
