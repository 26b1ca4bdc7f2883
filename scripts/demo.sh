#!/bin/sh
# Builds the release tool, runs it on the files in examples/ and shows what came out. Installs what is missing first.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target kelvra

output=build/demo/part.ruhx
mkdir -p build/demo
echo "== TZ=UTC0 kelvra -l examples/part.kesp -o $output"
TZ=UTC0 build/release/kelvra -l examples/part.kesp -o "$output"

# Shows the bytes from an offset on, up to a length, in hexadecimal or as EBCDIC text.
bytes() { od -A n -v -t x1 -j "$1" -N "$2" "$output"; }
text() { tail -c +"$(($1 + 1))" "$output" | head -c "$2" | dd conv=ascii 2>/dev/null; }

echo "== $output: $(wc -c <"$output") bytes"
echo "file header, 20 bytes at 0:"
bytes 0 20
echo "auxiliary header, 28 bytes at 20:"
bytes 20 28
echo "VPD header, 208 bytes at 48:"
bytes 48 208
echo "  RU name       $(text 56 8)"
echo "  load ID      $(bytes 76 4)"
echo "  product ID    $(text 85 7)"
echo "  date and time $(text 112 8) $(text 120 6)"
echo "  version level $(text 140 4)"
echo "SSD header, 64 bytes at 256 (zero fill up to 560 follows):"
bytes 256 64
echo "section header, 40 bytes at 560:"
bytes 560 40
echo "the load module's bytes, from 600 on:"
if tail -c +601 "$output" | cmp -s - examples/part.kesp; then
  echo " identical to examples/part.kesp"
else
  echo " not identical to examples/part.kesp"
  exit 1
fi
