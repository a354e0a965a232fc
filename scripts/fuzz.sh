#!/usr/bin/env bash
# Fuzzes each target for a while, an hour in all when nothing else is said.
#   scripts/fuzz.sh                         all targets, a quarter of an hour each
#   scripts/fuzz.sh SECONDS [TARGET ...]    the named ones (size_strings, typed_text, utf16, worlds), so long each
#   scripts/fuzz.sh merge [TARGET ...]      keeps in the tree the smallest part of what was found that reaches as much
# A finding lies in build/fuzz/found/TARGET; `build/fuzz/tests/fuzz/fuzz.TARGET FILE` runs it again.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/setup.sh

need_packages "${build_packages[@]}" clang libclang-rt-14-dev
build_preset fuzz fuzz_targets

what=${1:-900}
shift || true
targets=("$@")
[ "${#targets[@]}" -gt 0 ] || targets=(size_strings typed_text utf16 worlds)
# What is interned is kept for the life of the process, and texts that are made up have no end.
limits=(-max_len=1000 -rss_limit_mb=4000 -timeout=60)

findings=0
for target in "${targets[@]}"; do
  program=build/fuzz/tests/fuzz/fuzz.$target
  kept=tests/fuzz/corpus/$target
  grown=build/fuzz/corpus/$target
  found=build/fuzz/found/$target
  mkdir -p "$grown" "$found"
  if [ "$what" = merge ]; then
    # Branches alone, not how often each was taken: the tree keeps a start, not a collection.
    smaller=$(mktemp -d)
    "$program" -set_cover_merge=1 -use_counters=0 "${limits[@]}" "$smaller" "$kept" "$grown" >"build/fuzz/$target.merge.log" 2>&1
    rm -f "$kept"/*
    cp "$smaller"/* "$kept"
    rm -r "$smaller"
    say "$target: $(find "$kept" -type f | wc -l) files kept, $(du -sb "$kept" | cut -f1) bytes"
    continue
  fi
  say "fuzzing $target for $what seconds"
  log=build/fuzz/$target.log
  if ! "$program" "${limits[@]}" -max_total_time="$what" -print_final_stats=1 -artifact_prefix="$found/" "$grown" "$kept" \
    >"$log" 2>&1; then
    findings=$((findings + 1))
    grep -A 12 -m 1 -E 'DISAGREEMENT|ERROR|runtime error' "$log" || tail -n 20 "$log"
    echo "a finding: see $log and $found"
  fi
  sed -n 's/^stat::number_of_executed_units: */  executions: /p; s/^stat::average_exec_per_sec: */  each second: /p' "$log"
done
[ "$findings" -eq 0 ] || exit 1
