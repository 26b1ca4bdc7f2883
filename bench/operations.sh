#!/bin/sh
# Builds and runs the benchmarks of single operations; the arguments are Google Benchmark's, such as
# --benchmark_filter=ReadLid. Installs what is missing first.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh /usr/include/benchmark/benchmark.h=libbenchmark-dev
cmake --preset release -B build/bench -DKELVRA_BENCH=ON -DKELVRA_TESTS=OFF >/dev/null
built=$(cmake --build build/bench --target kelvra_bench) || { echo "$built" >&2 && exit 1; }
exec build/bench/bench/kelvra_bench "$@"
