#!/bin/sh
# Builds and runs the tests twice: on the release tool, and with sanitizers. Installs what is missing first.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
for preset in release sanitize; do
  echo "== tests: $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  ctest --preset "$preset" -j "$(nproc)"
done
