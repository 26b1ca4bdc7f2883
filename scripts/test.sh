#!/bin/sh
# Builds and runs the tests twice: on the release tool, and with sanitizers. Installs what is missing first.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh make=make /usr/lib/python3/dist-packages/jsonschema=python3-jsonschema mandoc=mandoc zsh=zsh \
  /usr/share/bash-completion/bash_completion=bash-completion file=file
for preset in release sanitize; do
  echo "== tests: $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  ctest --preset "$preset" -j "$(nproc)"
done
