#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the benchmarks in a Release configuration in build-bench/ and runs them all. Each
# prints one line per figure: name, value, unit, and the number of runs of its median.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake -S . -B build-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DTES_BENCH=ON -DTES_BUILD_TESTS=ON
cmake --build build-bench --target benchmarks

export QT_QPA_PLATFORM=offscreen
for bench in build-bench/bench/bench_*; do
    [ -f "$bench" ] && [ -x "$bench" ] || continue
    echo "== $(basename "$bench")"
    "$bench"
done
