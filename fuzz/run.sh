#!/usr/bin/env bash
# Runs every fuzz target for a time budget on top of its checked-in seeds and
# fails on any finding (the input is kept as build/fuzz/finding-<target>-*).
#   fuzz/run.sh            60 s a target (CI)
#   fuzz/run.sh 600        the long run, 10 minutes a target
# Build first: cmake --workflow --preset fuzz
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
build=${2:-build/fuzz}
status=0
for target in clip circle linear misc; do
    work="$build/corpus/$target"
    mkdir -p "$work"
    log="$build/fuzz-$target.log"
    if "$build/bin/fuzz_$target" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=2560 \
        -print_final_stats=1 -artifact_prefix="$build/finding-$target-" \
        "$work" "fuzz/corpus/$target" >"$log" 2>&1; then
        runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
        cov=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)
        printf '%-7s %10s runs  %s\n' "$target" "$runs" "$cov"
    else
        printf '%-7s FINDING (log: %s)\n' "$target" "$log"
        grep -E '^finding:|ERROR|SUMMARY|^0x' "$log" | head -n 20
        status=1
    fi
done
exit $status
