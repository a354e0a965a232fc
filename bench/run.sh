#!/usr/bin/env bash
# Measures: the name lists beside their floor, in instructions, and live completion beside today's tools.
# Fails when a goal is missed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/setup.sh

need_packages "${build_packages[@]}" "${session_packages[@]}" libgtest-dev libgmock-dev libbenchmark-dev valgrind \
  python3-ipython python3-jedi
build_preset release

say "instructions of the name lists, beside their floor"
bench/name_lists_instructions.py build/release/bench/name_lists_instructions --check
say "instructions of the class model: a path of a tree, and members beside their floor"
bench/class_model_instructions.py build/release/bench/class_model_instructions --check
say "instructions of questions to the workspace, beside the host calls they need"
bench/workspace_instructions.py build/release/bench/workspace_instructions --check
say "live completion, beside today's tools"
PYTHONPATH=build/release/python bench/peers/peers.py --check
