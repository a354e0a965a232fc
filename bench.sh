#!/usr/bin/env bash
# Measures everything and fails when a goal is missed; does its own set-up.
#   ./bench.sh            all parts; writes bench/results/table.md and bench/results/plot.svg
#   ./bench.sh PART...    some parts, and their goals alone; the table stays as it is
# Parts:
#   floors      the library beside hand-written floors, in instructions; and how the cost grows
#   times       the same in time
#   memory      what an answer holds, what it takes meanwhile, and what stays
#   warm        completion after a dot beside today's tools, again and again
#   first       the same, the first call of a fresh process
#   letters     one more letter, and the order of rank
#   others      texts that end in no member, and a class described
#   unchanged   an unchanged class asked again, a name
#   evaluation  completions that need an evaluation
#   import      what the import costs
#   kernel      a round trip through a kernel
#   replay      a recorded hour of work
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
source scripts/setup.sh

all_parts=(floors times memory warm first letters others unchanged evaluation import kernel replay)
parts=("$@")
[ $# -gt 0 ] || parts=("${all_parts[@]}")

binaries=build/release/bench
raw=bench/results/raw

# The command of a part; every one of them takes --check and --json.
command_of() {
  case $1 in
    floors) command=(bench/floors/floors.py "$binaries/floors_instructions") ;;
    times) command=(bench/floors/times.py "$binaries/floors_benchmark") ;;
    memory) command=(bench/memory/memory.py "$binaries") ;;
    unchanged) command=(bench/live/unchanged.py "$binaries/unchanged_class") ;;
    warm | first | letters | others) command=("bench/peers/$1.py") ;;
    evaluation) command=(bench/live/evaluation.py) ;;
    import) command=(bench/replay/import_cost.py) ;;
    kernel) command=(bench/replay/kernel_round_trip.py) ;;
    replay) command=(bench/replay/replay.py) ;;
    *) echo "bench.sh: no part '$1'; there are: ${all_parts[*]}" >&2; return 2 ;;
  esac
}

for part in "${parts[@]}"; do command_of "$part"; done

need_packages "${build_packages[@]}" "${session_packages[@]}" libgtest-dev libgmock-dev libbenchmark-dev valgrind \
  "${ipython_packages[@]}" "${kernel_packages[@]}" "${bench_packages[@]}"
build_preset release bench_programs contextdata_package

export PYTHONPATH="$PWD/build/release/python"
mkdir -p "$raw"
for part in "${parts[@]}"; do
  say "$part"
  rm -f "$raw/$part.json"
  command_of "$part"
  # A part that fails leaves its goals behind, or is itself a goal that was missed: the others run all the same.
  "${command[@]}" --json "$raw/$part.json" || true
done

say "goals"
write=()
[ $# -gt 0 ] || write=(--write)
bench/report.py "${write[@]}" "${parts[@]}"
