#!/bin/sh
# Builds the release tools, runs them on the files in examples/ and shows what came out. Installs what is missing first.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target kelvra kelvra-image

build=$PWD/build/${KELVRA_BUILD_FOLDER-}
mkdir -p "${build}demo"
cp examples/part.kesp examples/part.lidhdr examples/controller.vpdinfo "${build}demo"
cd "${build}demo"
export TZ=UTC0
PATH=${build}release:$PATH
run() {
  echo "== $*"
  "$@"
}
run kelvra -l part.kesp
run kelvra-image lint -l part.kesp
run kelvra-image build -l part.kesp -o safe.ruhx
run kelvra-image diff part.ruhx safe.ruhx
run kelvra-image verify safe.ruhx -l part.kesp -r part.lidhdr --verbose
run kelvra-image show safe.ruhx
