#!/bin/sh
# Tests the Bazel rules with a real Bazel (Debian's bazel-bootstrap, which brings a JDK): the example, then 50 images,
# built sandboxed, from a cache, after each kind of change, and where they must fail. Takes about a minute.
# Installs, in a temporary folder, what BUILD_FOLDER has built; without it, builds the release tools first.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh --check test-bazel.sh bazel=bazel-bootstrap cmake=cmake ninja=ninja-build \
  /usr/share/zoneinfo/Asia/Tokyo=tzdata
if [ $# -eq 0 ]; then
  cmake --preset release >/dev/null
  cmake --build --preset release --target kelvra kelvra-image
fi
work=$(mktemp -d "${TMPDIR:-/tmp}/kelvra-bazel.XXXXXX")
log=$work/log
base=$work/base1
epoch=1
stop() {
  bazel --nohome_rc --output_base="$base" shutdown >/dev/null 2>&1
}
trap 'stop || :; chmod -R u+w "$work"; rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
cmake --install "${1-build/${KELVRA_BUILD_FOLDER-}release}" --prefix "$work/installed" >/dev/null
program=$work/installed/bin/kelvra-image

fail() {
  echo "test-bazel.sh: $*; Bazel's last lines:" >&2
  tail -n 30 "$log" >&2
  exit 1
}
build() { # OPTION...: all targets of the workspace that is the current folder, in Tokyo's time zone
  bazel --nohome_rc --output_base="$base" build --spawn_strategy=sandboxed --disk_cache="$work/cache" --keep_going \
    --sandbox_add_mount_pair=/usr/share/zoneinfo/Asia/Tokyo:/etc/localtime --action_env=SOURCE_DATE_EPOCH="$epoch" \
    --symlink_prefix="$work/out-" --nosandbox_debug --subcommands --curses=no "$@" //... >"$log" 2>&1
}
same() { # IMAGE SECONDS OPTION...: kelvra-image makes the same without Bazel
  image=$1 seconds=$2
  shift 2
  "$program" build --output="$work/image" --utc --timestamp="$seconds" "$@"
  cmp "$work/image" "$work/out-bin/$image" || fail "$image has other bytes"
}
all_same() {
  for i in $(seq 50); do
    seconds=0
    [ "$i" != 10 ] || seconds=$time_of_10
    same "m$i.ruhx" $seconds --lid="m$i.kesp"
  done
}
changed() { # WHAT IMAGE...: a build makes these images and no others
  what=$1
  shift
  build || fail "$what: the build failed"
  sed -n "s/^SUBCOMMAND: .*'Making image \(.*\)\.ruhx'.*/\1/p" "$log" | sort >"$work/made"
  printf '%s\n' "$@" | sed '/^$/d' | sort | diff - "$work/made" || fail "$what: other images were made"
  all_same
  echo "$what: $(wc -l <"$work/made") made"
}
refused() { # WHAT CODE IMAGE REASON OPTION...: a build fails and says so
  what=$1 code=$2 image=$3 reason=$4
  shift 4
  ! build "$@" || fail "$what: the build did not fail"
  grep -q "Making image $image failed: (Exit $code)" "$log" || fail "$what: not $code for $image"
  grep "$reason" "$log" || fail "$what: not the reason"
}

cp -R examples/bazel "$work/example"
cd "$work/example"
sed -i "s|/usr/share/|$work/installed/share/|" WORKSPACE MODULE.bazel
build || fail "the example failed"
same boot.ruhx 0 --lid=boot.kesp
same loader.ruhx 0 --lid=loader.kesp
same app.ruhx 1767225600 --lid=app.kesp
stop

mkdir "$work/many"
cp WORKSPACE MODULE.bazel "$work/many"
sed '$a:VERLEVEL.A' product.vpdinfo >"$work/many/a.vpdinfo"
sed '$a:VERLEVEL.B' product.vpdinfo >"$work/many/b.vpdinfo"
cd "$work/many"
time_of_10=0
for i in $(seq 50); do
  product=a
  [ "$i" -le 25 ] || product=b
  seq "$i" 1000 >"m$i.kesp"
  printf ':RULOADID.81E002%02d\n:RUDEST.SERV\n:VPDINFONM.%s\n' "$i" $product >"m$i.lidhdr"
  echo "kelvra_image(name = 'm$i', lid = 'm$i.kesp', source = 'm$i.lidhdr'," \
    "vpdinfo = '$product.vpdinfo', timestamp = 0)"
done | sed '1iload("@kelvra//:kelvra.bzl", "kelvra_image")' >BUILD.bazel
all=$(seq -f m%.0f 50)
# shellcheck disable=SC2086 # a list of words
changed "a clean build" $all
grep -E '^INFO: .* 50 [a-z]+-sandbox\.' "$log" || fail "not 50 actions in a sandbox"
stop
base=$work/base2
build || fail "the build from the cache failed"
grep -E '^INFO: [0-9]+ processes: 50 (disk|remote) cache hit, [0-9]+ internal\.' "$log" || fail "not 50 cache hits"
all_same

changed "nothing"
touch m6.kesp; epoch=2; changed "a modification time and the environment"
echo x >>m7.kesp; changed "a LID" m7
echo :LLFLAG.N >>m8.lidhdr; changed "a RUVPD source" m8
echo :VERLEVEL.C >>a.vpdinfo; changed "a VPDINFO source" $(seq -f m%.0f 25)
time_of_10=86400
sed -i "/'m10'/s/timestamp = 0/timestamp = $time_of_10/" BUILD.bazel; changed "a build time" m10
cp "$program" "$program.new"; echo >>"$program.new"; mv "$program.new" "$program"
# shellcheck disable=SC2086
changed "the program" $all

sed -i s/VPDINFONM.a/VPDINFONM.b/ m11.lidhdr
lacking='/m11.ruhx: not made: .*/m11.inputs/.*/b.vpdinfo: cannot open: No such file or directory'
refused "an undeclared VPDINFO source" 60 m11.ruhx "$lacking"
refused "an undeclared VPDINFO source, no sandbox" 60 m11.ruhx "$lacking" --spawn_strategy=local
sed -i "/'m11'/s/a.vpdinfo/b.vpdinfo/" BUILD.bazel; changed "VPDINFONM" m11
sed -i "/'m11'/s/vpdinfo = /vpdinfo = None and /" BUILD.bazel
refused "one that is declared no more, no sandbox" 60 m11.ruhx "$lacking" --spawn_strategy=local
sed -i "/'m11'/s/None and //" BUILD.bazel
sed -i s/SERV/NOWHERE/ m12.lidhdr
refused "a refused value" 39 m12.ruhx 'RU Destination.* NOWHERE\.'
sed -i "/'m12'/s/timestamp = 0/lint = True/" BUILD.bazel
refused "a refused value, lint" 1 m12.ruhx 'm12.lidhdr:2: error: .*\[refused-value\]'
sed -i s/NOWHERE/SERV/ m12.lidhdr

# Sources that rules make, of another package, in a folder that VPDINFONM names, read alone, with blanks in their names.
echo 'exports_files(["m1.kesp", "a.vpdinfo"])' >>BUILD.bazel
mkdir -p odd/sub
cp b.vpdinfo odd/sub/a.vpdinfo
cat >odd/BUILD.bazel <<'END'
load("@kelvra//:kelvra.bzl", "kelvra_image")
genrule(name = "a", outs = ["two words.lidhdr"], cmd = "printf ':RUNAME.ODD\\n:VPDINFONM.a\\n' >'$@'")
genrule(name = "b", outs = ["deep.lidhdr"], cmd = "echo :VPDINFONM.sub/a >$@")
kelvra_image(name = "two words", lid = "//:m1.kesp", source = ":a", vpdinfo = "//:a.vpdinfo", out = "img/two words")
kelvra_image(name = "deep", lid = "//:m1.kesp", source = ":b", vpdinfo = "sub/a.vpdinfo")
kelvra_image(name = "alone", lid = "//:m1.kesp", source = "//:a.vpdinfo")
END
build || fail "sources from elsewhere: the build failed"
mkdir "$work/plain"
cp -R "$work/out-bin/odd/"*.lidhdr a.vpdinfo odd/sub "$work/plain"
same "odd/img/two words" 0 --lid=m1.kesp --source="$work/plain/two words.lidhdr"
same odd/deep.ruhx 0 --lid=m1.kesp --source="$work/plain/deep.lidhdr"
same odd/alone.ruhx 0 --lid=m1.kesp --source=a.vpdinfo
echo 'kelvra_image(name = "both", lid = "m1.kesp", source = "a.vpdinfo", vpdinfo = "b.vpdinfo")' >>BUILD.bazel
! build || fail "a source that is read alone took a VPDINFO source"
grep 'a.vpdinfo is read alone, without b.vpdinfo' "$log" || fail "a source that is read alone: not the reason"
echo "All passed."
