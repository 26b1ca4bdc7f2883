#!/bin/sh
# Builds and runs the benchmarks of single operations; the arguments are Google Benchmark's, such as
# --benchmark_filter=ReadLid.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh --check operations.sh g++=g++ cmake=cmake ninja=ninja-build \
  /usr/include/benchmark/benchmark.h=libbenchmark-dev
cmake --preset release -B build/bench -DKELVRA_BENCH=ON -DKELVRA_TESTS=OFF >/dev/null
built=$(cmake --build build/bench --target kelvra_bench) || { echo "$built" >&2 && exit 1; }
exec build/bench/bench/kelvra_bench "$@"
