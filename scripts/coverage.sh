#!/usr/bin/env bash
# What the unit tests and the fault and allocation sweeps reach of contextdata/.
#   scripts/coverage.sh            builds, runs, and prints lines and branches of every file and what is not reached
#   scripts/coverage.sh --check    fails besides, when something is not reached that docs/coverage.md does not explain
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/setup.sh

need_packages "${build_packages[@]}" libgtest-dev libgmock-dev
build_preset coverage unit_tests inner_tests first_use_tests fault_tests allocation_tests inner_allocation_tests

# What earlier runs have reached does not count.
find build/coverage -name '*.gcda' -delete
say "testing preset coverage"
for program in unit/unit_tests unit/inner_tests unit/first_use_tests faults/fault_tests allocations/allocation_tests \
  allocations/inner_allocation_tests; do
  shown_on_failure "build/coverage.$(basename "$program").log" "build/coverage/tests/$program" --gtest_brief=1
done
/usr/bin/python3 scripts/coverage.py build/coverage "$@"
