#!/usr/bin/env bash
# Builds and passes all tests, on a bare machine too.
#   ./test.sh            everything
#   ./test.sh quick      one build, its tests, no sanitizers, no clang, and no browser (which takes 520 MB to install)
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
source scripts/setup.sh

need_packages "${build_packages[@]}" "${session_packages[@]}" "${ipython_packages[@]}" "${kernel_packages[@]}" \
  "${package_packages[@]}" \
  libgtest-dev libgmock-dev libbenchmark-dev python3-pytest python3-pydantic python3-traitlets python3-jpype \
  openjdk-17-jre-headless binutils git doxygen
left_out=(-LE browser)
if [ "${1:-}" != quick ]; then
  need_packages clang clang-format clang-tidy libclang-rt-14-dev valgrind "${browser_packages[@]}"
  left_out=()
fi

build_preset dev
say "testing preset dev"
ctest --preset dev -j "$(nproc)" "${left_out[@]}"

if [ "${1:-}" != quick ]; then
  build_preset asan
  say "testing preset asan (address and undefined-behaviour sanitizers)"
  ctest --preset asan -j "$(nproc)"

  build_preset fuzz fuzz_targets
  say "fuzzing, for a moment"
  ctest --preset fuzz -j "$(nproc)"

  say "clang and clang-tidy"
  build_preset tidy

  say "benchmarks"
  build_preset release bench_programs

  say "packages"
  scripts/package.sh --check
fi
say "all passed"
