#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz for a while, a few at a time, and fails when any of them
# finds something (a crash, a sanitizer report, a leak, a timeout, too much memory).
#
#   fuzz/run_fuzzers.sh smoke SECONDS   each target on a fresh temporary copy of its seeds
#   fuzz/run_fuzzers.sh long SECONDS    each target on build/fuzz/long-corpus/<target>, which
#                                       keeps what it found, so a later run goes on from there
#
# FUZZ_JOBS targets run side by side (default 2). Logs go to build/fuzz/logs/<target>.log,
# inputs that found something to build/fuzz/artifacts/.
set -uo pipefail
cd "$(dirname "$0")/.."

mode=${1:?usage: $0 smoke|long SECONDS}
seconds=${2:?usage: $0 smoke|long SECONDS}
jobs=${FUZZ_JOBS:-2}
build=build/fuzz
targets=(open_fuzz load_fuzz edit_save_fuzz mapfile_fuzz ini_fuzz decompress_fuzz)

case "$mode" in smoke|long) ;; *) echo "unknown mode: $mode" >&2; exit 2 ;; esac
mkdir -p "$build/logs" "$build/artifacts" "$build/status"
rm -f "$build"/status/*

# Leaks are findings; a stack trace makes an undefined-behaviour report readable.
export ASAN_OPTIONS="detect_leaks=1${ASAN_OPTIONS:+:$ASAN_OPTIONS}"
export UBSAN_OPTIONS="print_stacktrace=1${UBSAN_OPTIONS:+:$UBSAN_OPTIONS}"

run_target() {
  local target=$1 corpus scratch="" status
  local log="$build/logs/$target.log"
  if [ "$mode" = smoke ]; then
    scratch=$(mktemp -d "${TMPDIR:-/tmp}/kartova-corpus-$target.XXXXXX")
    cp -R "$build/corpus/$target/." "$scratch/"
    corpus=("$scratch")
  else
    mkdir -p "$build/long-corpus/$target"
    corpus=("$build/long-corpus/$target" "$build/corpus/$target")
  fi
  # The outer limit only guards against a run that does not end by itself.
  timeout --kill-after=30 $((seconds + 300)) "$build/$target" \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$build/artifacts/$target-" "${corpus[@]}" >"$log" 2>&1
  status=$?
  [ -n "$scratch" ] && rm -rf "$scratch"
  echo "$status" >"$build/status/$target"
  local done_line runs rate
  done_line=$(grep -E '^#[0-9]+[[:space:]]+DONE' "$log" | tail -n 1)
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
  if [ "$status" -eq 0 ]; then
    printf '%-16s ok    %s runs, %s exec/s  %s\n' "$target" "${runs:-?}" "${rate:-?}" \
      "$(grep -oE 'cov: [0-9]+ ft: [0-9]+' <<<"$done_line")"
  else
    printf '%-16s FAILED (exit %s), log: %s\n' "$target" "$status" "$log"
  fi
}

for target in "${targets[@]}"; do
  if [ ! -x "$build/$target" ]; then echo "$build/$target is missing: build the fuzz preset first" >&2; exit 2; fi
  while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n; done
  run_target "$target" &
done
wait

failed=0
for target in "${targets[@]}"; do
  status=$(cat "$build/status/$target" 2>/dev/null || echo missing)
  if [ "$status" != 0 ]; then
    failed=1
    echo "---- $target (exit $status): end of $build/logs/$target.log" >&2
    tail -n 60 "$build/logs/$target.log" >&2
  fi
done
[ "$failed" -eq 0 ] || { echo "fuzzing found problems; inputs are in $build/artifacts/" >&2; exit 1; }
