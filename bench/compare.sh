#!/usr/bin/env bash
# Compares a run of the release tool with tools that copy or wrap the same bytes, on files in memory, and prints a
# Markdown table: medians, and kelvra's time divided by each of the others' ("-": refused the size, or over 20 s).
# Then the companion: build beside kelvra, verify beside cmp, and show.
# "floor" is a static program that makes the system calls of a run and does nothing else. --large adds a load module of
# 1 GiB.
set -euo pipefail
export LC_ALL=C
cd "$(dirname "$0")/.."

sizes=("0" "1 KiB" "64 KiB" "1 MiB" "16 MiB" "256 MiB")
needed=1024  # MiB: the load module, an output, and the memory of the tool that runs
case "$*" in
  '') ;;
  --large) sizes+=("1 GiB") needed=4096 ;;
  *) echo "Usage: compare.sh [--large]" >&2 && exit 2 ;;
esac

scripts/setup.sh --check compare.sh g++=g++ cc=gcc cmake=cmake ninja=ninja-build hyperfine=hyperfine jq=jq \
  objcopy=binutils mkimage=u-boot-tools srec_cat=srecord /usr/bin/time=time
cmake --preset release >/dev/null
built=$(cmake --build --preset release --target kelvra kelvra-image) || { echo "$built" >&2 && exit 1; }
cc -O2 -static -o build/release/floor bench/floor.c

has_room() { [ -d "$1" ] && [ -w "$1" ] && [ "$(df -BM --output=avail "$1" | tr -dc '[:digit:]')" -ge "$needed" ]; }
base=/dev/shm
if ! has_room "$base"; then
  base=${TMPDIR:-/tmp}
  has_room "$base" || { echo "compare.sh: $needed MiB are needed in /dev/shm or $base" >&2 && exit 1; }
  echo "compare.sh: no room in /dev/shm; the times are those of files in $base" >&2
fi
folder=
trap '[ -z "$folder" ] || rm -rf "$folder"' EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM
folder=$(mktemp -d "$base/kelvra-compare.XXXXXX")
ln -s "$PWD"/build/release/{kelvra,kelvra-image,floor} "$folder"
cp examples/part.lidhdr "$folder/lid.lidhdr"
cp examples/controller.vpdinfo "$folder"
cd "$folder"
mkdir out

# Full names, so that no search along PATH is measured. What cat puts together goes to its standard output, which
# hyperfine opens before the clock starts: no shell is in any of the times, nor is the opening in cat's.
peers=(floor cp cat objcopy mkimage srec_cat)
declare -A commands=(
  [kelvra]="./kelvra -l lid.kesp -o out/lid.ruhx"
  [floor]="./floor lid.kesp lid.lidhdr controller.vpdinfo out/lid.ruhx"
  [cp]="$(type -P cp) lid.kesp out/lid.ruhx"
  [cat]="$(type -P cat) front lid.kesp"
  [objcopy]="$(type -P objcopy) -I binary -O elf64-x86-64 lid.kesp out/lid.ruhx"
  [mkimage]="$(type -P mkimage) -A ppc -O linux -T firmware -C none -n x -d lid.kesp out/lid.ruhx"
  [srec_cat]="$(type -P srec_cat) lid.kesp -binary -o out/lid.ruhx -binary"
  [build]="./kelvra-image build -l lid.kesp -o out/lid.ruhx"
  [cmp]="$(type -P cmp) lid.kesp same.kesp"
  [verify]="./kelvra-image verify lid.ruhx -l lid.kesp"
  [1000 kelvra]="$(type -P xargs) -a names -P2 -I{} ./kelvra -l modules/{}.kesp -o out/{}.ruhx"
  [1000 cp]="$(type -P xargs) -a names -P2 -I{} $(type -P cp) modules/{}.kesp out/{}.ruhx"
  [1000 build]="$(type -P xargs) -a names -I{} ./kelvra-image build -l modules/{}.kesp -o out/{}.ruhx --depfile out/{}.d"
)
declare -A outputs=([cat]=./out/lid.ruhx) runs medians

# The first N bytes of an endless text; N may have a unit.
bytes() { head -c "$1" < <(yes "load module"); }

remove_outputs="$(type -P find) out -type f -delete"

# Runs a command once and sets how often each round repeats it: for half a second, 60 times at most. Fails when the
# command does, or takes more than 20 seconds.
try() {
  local words start
  read -ra words <<<"${commands[$1]}"
  $remove_outputs
  start=${EPOCHREALTIME/./}
  timeout --foreground 20 "${words[@]}" >"${outputs[$1]-/dev/null}" 2>log || return 1
  runs[$1]=$((500000 / (${EPOCHREALTIME/./} - start + 1)))
  ((runs[$1] >= 1)) || runs[$1]=1
  ((runs[$1] <= 60)) || runs[$1]=60
}

# Measures the commands in turns, so that a change of the machine's pace meets all of them, and sets their medians, in
# seconds.
measure() {
  local name
  rm -f -- *.times
  for _ in 1 2 3 4 5; do
    for name; do
      hyperfine -N --style none --warmup $((runs[$name] > 1)) --runs "${runs[$name]}" --prepare "$remove_outputs" \
        --output "${outputs[$name]-/dev/null}" --export-json result.json "${commands[$name]}" >/dev/null 2>log ||
        { cat log >&2 && exit 1; }
      jq '.results[0].times[]' result.json >>"$name.times"
    done
  done
  for name; do
    medians[$name]=$(jq -s 'sort | (.[(length - 1) / 2 | floor] + .[length / 2 | floor]) / 2' "$name.times")
  done
}

calculate() { awk "BEGIN { printf \"%.2f\", $1 }"; }

echo "| load module | kelvra, ms$(printf ' | / %s' "${peers[@]}") | peak memory, MiB |"
echo "|---:|---:|$(printf -- '---:|%.0s' "${peers[@]}")---:|"
for size in "${sizes[@]}"; do
  bytes "${size// /}" >lid.kesp
  # A virtual machine gets some of its memory at the first touch: let that be now, for an output and a tool's memory.
  head -c "$((2 * $(stat -c %s lid.kesp)))" /dev/zero >touched && rm touched
  try kelvra || { cat log >&2 && exit 1; }
  head -c 600 out/lid.ruhx >front
  measured=(kelvra)
  for name in "${peers[@]}"; do
    if try "$name"; then measured+=("$name"); fi
  done
  medians=()
  measure "${measured[@]}"
  row="| $size | $(calculate "${medians[kelvra]} * 1000")"
  for name in "${peers[@]}"; do
    row+=" | "
    if [ -n "${medians[$name]-}" ]; then row+=$(calculate "${medians[kelvra]} / ${medians[$name]}"); else row+=-; fi
  done
  read -ra words <<<"${commands[kelvra]}"
  /usr/bin/time -f %M -o kibibytes "${words[@]}" 2>/dev/null
  echo "$row | $(calculate "$(cat kibibytes) / 1024") |"
done

echo
bytes 256MiB >lid.kesp
cp lid.kesp same.kesp
./kelvra -l lid.kesp 2>log
try cmp && try verify
measure cmp verify
echo "verify -l at 256 MiB: $(calculate "${medians[verify]} * 1000") ms, $(calculate \
  "${medians[verify]} / ${medians[cmp]}") of cmp"
rm lid.ruhx same.kesp
bytes 1KiB >lid.kesp
try kelvra && try build
measure kelvra build
echo "build at 1 KiB: $(calculate "${medians[build]} * 1000") ms, $(calculate \
  "${medians[build]} / ${medians[kelvra]}") of kelvra"
./kelvra -l lid.kesp 2>log
mkdir images
for number in $(seq -w 0 999); do cp lid.ruhx "images/$number.ruhx"; done
commands[show]="./kelvra-image show $(echo images/*)"
try show
measure show
echo "show of 1,000 images: $(calculate "${medians[show]} * 1000") us each"

rm lid.kesp
mkdir modules
cp controller.vpdinfo modules
bytes 4000KiB | split -b 4KiB -d -a 3 --additional-suffix=.kesp - modules/m
statements=$(cat lid.lidhdr)
for number in $(seq -w 0 999); do
  echo "m$number"
  echo "$statements" >"modules/m$number.lidhdr"
done >names
commands[1000 build on all]="${commands[1000 build]/names /names -P$(nproc) }"
runs=(["1000 kelvra"]=2 ["1000 cp"]=2 ["1000 build"]=2 ["1000 build on all"]=2)
measure "1000 kelvra" "1000 cp" "1000 build" "1000 build on all"
kelvra=${medians[1000 kelvra]} cp=${medians[1000 cp]}
echo "1,000 load modules of 4 KiB, two at a time (xargs -P2): kelvra $(calculate "$kelvra") s," \
  "cp $(calculate "$cp") s, ratio $(calculate "$kelvra / $cp")"
echo "build with a depfile, images a second: $(calculate "1000 / ${medians[1000 build]}") one at a time," \
  "$(calculate "1000 / ${medians[1000 build on all]}") on $(nproc) cores"
