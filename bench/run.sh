#!/usr/bin/env bash
# Measures: the name lists beside their floor, in instructions, and live completion beside today's tools.
# Fails when a goal is missed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/setup.sh

need_packages "${build_packages[@]}" "${session_packages[@]}" libgtest-dev libgmock-dev libbenchmark-dev valgrind \
  "${ipython_packages[@]}" "${kernel_packages[@]}" python3-jedi
build_preset release

say "instructions of the name lists, beside their floor"
bench/name_lists_instructions.py build/release/bench/name_lists_instructions --check
say "instructions of the class model: a path of a tree, and members beside their floor"
bench/class_model_instructions.py build/release/bench/class_model_instructions --check
say "instructions of questions to the workspace, beside the host calls they need"
bench/workspace_instructions.py build/release/bench/workspace_instructions --check
say "live completion, beside today's tools"
PYTHONPATH=build/release/python bench/peers/peers.py --check
say "completions that need an evaluation"
PYTHONPATH=build/release/python bench/live/evaluation.py --check
say "what the import costs, and a round trip through a kernel"
PYTHONPATH=build/release/python bench/replay/import_cost.py --check
PYTHONPATH=build/release/python bench/replay/kernel_round_trip.py --check
say "a recorded hour of work, beside IPython with and without jedi"
PYTHONPATH=build/release/python bench/replay/replay.py --check
