#!/bin/sh
# Builds the fuzzers and runs each for SECONDS (default 60), one after another, on a corpus in the build folder that
# grows from run to run. Prints a line for each; fails when one found a fault.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-60}
case $seconds in
  *[!0-9]* | 0*) echo "usage: $0 [SECONDS]" >&2; exit 2 ;;
esac

scripts/setup.sh --check fuzz.sh clang++=clang cmake=cmake ninja=ninja-build
runtime=$(clang++ -print-resource-dir)/lib/linux/libclang_rt.fuzzer-$(uname -m).a
major=$(clang++ -dumpversion)
scripts/setup.sh --check fuzz.sh "$runtime=libclang-rt-${major%%.*}-dev"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

folder=build/${KELVRA_BUILD_FOLDER-}fuzz
status=0
for source in fuzz/*Fuzz.cpp; do
  fuzzer=$(basename "$source" .cpp)
  corpus=$folder/corpus/$fuzzer
  found=$folder/found/$fuzzer
  log=$folder/$fuzzer.log
  mkdir -p "$corpus" "$found"
  if UBSAN_OPTIONS=print_stacktrace=1 "$folder/fuzz/$fuzzer" -max_total_time="$seconds" -max_len=4096 \
    -timeout=10 -print_final_stats=1 -artifact_prefix="$found/" "$corpus" "fuzz/seeds/$fuzzer" examples \
    >"$log" 2>&1; then
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    coverage=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$log" | tail -n 1)
    echo "$fuzzer: $runs runs, coverage $coverage"
  else
    status=1
    input=$(sed -n 's/.*Test unit written to //p' "$log" | tail -n 1)
    echo "$fuzzer: found a fault with ${input:-no input}; see $log"
  fi
done
exit $status
