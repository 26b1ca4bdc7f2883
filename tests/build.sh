#!/bin/bash
# kelvra-image build in real processes: the same bytes, lines and codes as kelvra, and under the output's name the old
# image or the whole new one, whatever happens. Usage: tests/build.sh PATH_TO_KELVRA PATH_TO_KELVRA_IMAGE
set -u
tool=$(realpath -e -- "${1:?PATH_TO_KELVRA}") && image=$(realpath -e -- "${2:?PATH_TO_KELVRA_IMAGE}") || exit 1
work=$(mktemp -d) && chmod 755 "$work" && cd "$work" || exit 1
trap 'umount "$work/full" 2>/dev/null; rm -rf "$work"' EXIT
export TZ=UTC0
failed=0
fail() { failed=1; echo "$*"; cat stderr; }
expect() {  # expect CLAIM WANTED ACTUAL
  [ "$2" = "$3" ] || fail "$1: expected $2, actual $3"
}
build() { "$image" build "$@" 2>stderr; }
code_of() { "$@" 2>stderr >/dev/null; echo $?; }

mkdir good && cd good || exit 1
seq 300 >part.kesp && seq 5 >bare && head -c 3000000 /dev/urandom >big.kesp && : >empty.kesp
printf '\x02\x22%0102d' 0 >header.kesp  # a LID header's magic number
for name in part big empty header bare Long_name_of_a_unit; do echo ':RUFLASH.Y' >$name.lidhdr; done
cp part.kesp Long_name_of_a_unit.kesp
for kind in pfginfo sfginfo vpdinfo other; do printf ':RUNAME.KIND\n:PRODUCTID.5770SS1\n' >unit.$kind; done
echo ':PRODUCTID.5770SS1' >qel.vpdinfo
echo ':RUDEST.NOWHERE' >refused.lidhdr && echo ':VPDINFONM.none' >no-info.lidhdr && echo ':RULOADID.XYZ' >told.lidhdr
mkdir folder && ln -s part.kesp link && ln -s none/x dangling && echo ':VPDINFONM.pipe' >piped.lidhdr
touch -d @1690000000 ./*.kesp bare
cd .. || exit 1

# Each run of kelvra, and the same run of build in a copy of the folder.
while read -ra options; do
  rm -rf theirs ours && cp -a good theirs && cp -a good ours
  (cd theirs && exec "$tool" "${options[@]}") 2>lines; code=$?
  (cd ours && exec "$image" build --verbose "${options[@]}") 2>stderr
  expect "code of ${options[*]}" $code $?
  diff -r --no-dereference theirs ours >&2 || fail "bytes of ${options[*]}"
  last=$(sed -n "$(($(wc -l <lines) + 1)),\$p" stderr)
  [ $code = 0 ] && [ -z "$last" ] || [[ $code != 0 && $last == "kelvra-image: "* && $last != *$'\n'* ]] ||
    fail "last line of ${options[*]}"
  head -n "$(wc -l <lines)" stderr | cmp - lines || fail "lines of ${options[*]}"
done <<'END'
-l part.kesp
-l part.kesp -o new.ruhx
-l bare
-l part -r part
-l big.kesp
-l empty.kesp
-l header.kesp
-l Long_name_of_a_unit.kesp
-l part.kesp -r unit.pfginfo
-l part.kesp -r unit.sfginfo
-l part.kesp -r unit.vpdinfo
-l part.kesp -r unit.other
-l part.kesp -r told.lidhdr
-l part.kesp -r refused.lidhdr
-l part.kesp -r no-info.lidhdr
-l none.kesp
-l folder
-l part.kesp -r part.lidhdr -o none/x.ruhx
-l part.kesp -o folder
-l part.kesp -o folder/
-l part.kesp -o part.kesp/x
-l part.kesp -o part.kesp
-l part.kesp -o qel.vpdinfo
-l part.kesp -o link
-l part.kesp -o dangling
END

# What build refuses by itself, and what it says of it.
cd good && cp ../good/part.kesp ../part.before && mkfifo pipe.vpdinfo
while IFS='|' read -r options want said; do
  read -ra words <<<"$options"
  build "${words[@]}" >/dev/null; expect "code of $options" "$want" $?
  grep -qxF -- "kelvra-image: $said" stderr || fail "$options: not said: $said"
done <<'END'
-l part.kesp -r none.lidhdr -o x|2|x: not made: none.lidhdr: cannot open: No such file or directory
-l part.kesp -r none.other -o x|2|x: not made: none.other: cannot open: No such file or directory
-l part.kesp -r unit.sfginfo --vpdinfo qel.vpdinfo -o x|2|qel.vpdinfo: no place for a VPDINFO source: unit.sfginfo is read alone
-l part.kesp -r piped.lidhdr --lint -o x|2|pipe.vpdinfo: not a regular file, and to be read more than once
-l part.kesp --vpdinfo none -o x|60|x: not made: none: cannot open: No such file or directory
-l none.kesp -o x|33|x: not made: none.kesp: cannot open: No such file or directory
-l part.kesp -o nodir/x.ruhx|34|nodir/x.ruhx: cannot create: No such file or directory
-l part.kesp -o /dev/full|2|/dev/full: cannot write: No space left on device
-l part.kesp -o x --depfile nodir/d|2|nodir/d: cannot create: No such file or directory
-l part.kesp -o x --depfile part.lidhdr|2|part.lidhdr: cannot write: it is an input, or the file behind standard output or standard error
-l part.kesp -o x --depfile x|2|x: cannot write: it is the image
-l part.kesp -o x=y --depfile d|2|x=y: a depfile for make and Ninja cannot hold this name
END
for left in x d x=y nodir; do [ ! -e "$left" ] || fail "$left was left"; done
expect 'a success says nothing' '' "$(build -l part.kesp -o x; cat stderr)"
expect 'a value is told' 1 "$(build -l part.kesp -r told.lidhdr -o x; wc -l <stderr)"
"$tool" -l part.kesp 2>/dev/null && "$tool" -l big.kesp 2>/dev/null
cmp <("$image" build -l part.kesp -o /dev/stdout 2>&1 | cat) part.ruhx || fail 'a pipe'
"$image" extract big.ruhx -o big.out && cmp big.kesp big.out; expect 'the LID back' 0 $?
exec 5<>gone && rm gone && build -l part.kesp -o /dev/fd/5; expect 'a file without a name' 0 "$(cmp part.ruhx /dev/fd/5; echo $?)"
build -l big.kesp -o /dev/stdout | true
expect 'a pipe that nobody reads' 2 "${PIPESTATUS[0]}"
"$image" build -l part.kesp -o x <&- >&- 2>&-; expect 'closed streams' 0,0 "$?,$(cmp part.ruhx x; echo $?)"

# The timestamp and the time zone.
expect 'SOURCE_DATE_EPOCH' "$(build -l part.kesp --timestamp 86399 --utc -o x; cksum <x)" \
  "$(TZ=EST5 SOURCE_DATE_EPOCH=86399 build -l part.kesp -o x; cksum <x)"
expect 'its stamp' 0001517f "$(od -An -tx1 -j4 -N4 x | tr -d ' ')"

# Where the file goes, and with which permissions.
(umask 027 && build -l part.kesp -o fresh); expect 'a new file' 640 "$(stat -c %a fresh)"
chmod 4751 fresh; build -l big.kesp -o fresh; expect 'an old file' 4751 "$(stat -c %a fresh)"
mkdir deep && ln -s ../deep/end deep/middle && ln -s deep/middle chain
for _ in new old; do
  build -l part.kesp -o chain
  expect 'a chain of links' 'deep/middle,../deep/end,0' "$(readlink chain),$(readlink deep/middle),$(cmp part.ruhx deep/end; echo $?)"
done
ln -s round round; expect 'a link to itself' 34 "$(code_of "$image" build -l part.kesp -o round)"
mkdir listed && echo old >listed/x && chmod 640 listed/x
list='import os, struct; rows = ((1, -1), (2, 9), (4, -1), (16, -1), (32, -1))
os.setxattr("listed", "system.posix_acl_default", struct.pack("<I", 2) + b"".join(
  struct.pack("<HHi", tag, 7, who) for tag, who in rows))'
if python3 -c "$list" 2>/dev/null; then
  build -l part.kesp -o listed/x
  expect 'no other list than the old file had' '640 []' \
    "$(stat -c %a listed/x) $(python3 -c 'import os; print(os.listxattr("listed/x"))')"
else
  echo 'skipped: no access control lists here'
fi
user=(setpriv --reuid=65534 --clear-groups)
if "${user[@]}" "$tool" 2>&1 | grep -q Usage; then
  touch closed && chmod 777 deep && echo old >deep/writable && chmod 666 deep/writable && chmod 755 deep
  expect 'a file of another user' 34 "$(code_of "${user[@]}" "$image" build -l part.kesp -o closed)"
  expect 'a folder of another user' 34 "$(code_of "${user[@]}" "$image" build -l part.kesp -o deep/x)"
  expect 'no place for the temporary file' 2 "$(code_of "${user[@]}" "$image" build -l part.kesp -o deep/writable)"
  chmod 777 deep && chown 65534 deep/end && build -l part.kesp -o deep/end
  expect "another user's file" 65534 "$(stat -c %u deep/end)"
  echo old >deep/other && chmod 6662 deep/other && "${user[@]}" --regid=65534 "$image" build -l part.kesp -o deep/other
  expect "what was another group's" '622 65534' "$(stat -c '%a %g' deep/other)"
else
  echo 'skipped: no other user here'
fi

# Below, all ends with the old image or the new one in a folder of its own, and nothing beside it.
mkdir ../safe && echo old >../old
start() { rm -rf ../safe/* ../safe/.[!.]* && case $1 in old) cp ../old ../safe/x ;; esac; }
left() {  # what stands in the folder, in a word
  local names i
  for ((i = 0; i < 100; i++)); do
    names=$(ls -A ../safe)
    [[ $names == *.kelvra-* ]] || break
    sleep 0.05  # for the child that renames
  done
  case $names in
    '') echo none ;;
    x) if cmp -s ../safe/x ../old; then echo old; elif cmp -s ../safe/x big.ruhx; then echo new; else echo wrong; fi ;;
    *) echo "$names" ;;
  esac
}
for before in none old; do
  start $before
  expect "a limit on file sizes" 2 "$(ulimit -f 100; code_of "$image" build -l big.kesp -o ../safe/x)"
  grep -qx 'kelvra-image: ../safe/x: cannot write: File too large' stderr || fail 'the reason of the limit'
  expect "a limit on file sizes, $before" $before "$(left)"
done
mkdir ../full
if mount -t tmpfs -o size=1M none ../full 2>/dev/null; then
  echo old >../full/x
  expect 'a full disk' '2,old,x' "$(code_of "$image" build -l big.kesp -o ../full/x --depfile ../full/d),$(cat ../full/x),$(ls -A ../full)"
  grep -qx 'kelvra-image: ../full/x: cannot write: No space left on device' stderr || fail 'the reason of the full disk'
  umount ../full
else
  echo 'skipped: no tmpfs here'
fi
for signal in KILL TERM; do
  for before in none old; do
    declare -A seen=()
    for ((i = 0; i < 60; i++)); do
      start $before
      timeout --foreground -s $signal "0.0$((RANDOM % 3))$((RANDOM % 9 + 1))" "$image" build -l big.kesp -o ../safe/x
      ended=$(left) seen[$ended]=1
      [[ $ended == "$before" || $ended == new ]] || fail "killed by $signal, $before: $ended"
    done
    [ ${#seen[@]} = 2 ] || echo "killed by $signal, $before: seen only ${!seen[*]}"
  done
done
start none
runs=()
for _ in 1 2 3 4 5 6 7 8; do "$image" build -l big.kesp -o ../safe/x & runs+=($!); done
for run in "${runs[@]}"; do wait "$run" || fail 'a parallel run'; done
expect 'parallel runs' new "$(left)"

# Between two system calls that strace keeps apart. With -D the process in the background is build itself.
export ASAN_OPTIONS=detect_leaks=0  # which cannot run below a tracer
slowly() { exec strace -D -f -qq -o trace "$@" "$image" build -l big.kesp -o ../safe/x; }
stop() {  # stop SIGNAL: kills the run in the background when the temporary name is there
  for ((i = 0; i < 100; i++)); do
    [[ $(ls -A ../safe) != *.kelvra-* ]] || { { kill -"$1" $!; wait $!; } 2>/dev/null; return; }
    sleep 0.05
  done
  fail 'no temporary name'
}
if strace -o /dev/null true 2>/dev/null; then
  start old
  slowly -e inject=rename:delay_enter=1000000 &
  stop KILL
  expect 'killed between link and rename' new "$(left)"
  start old; (slowly -e inject=rename:error=EIO) 2>stderr; expect 'a failing rename' 2,old "$?,$(left)"
  (slowly -e trace=openat)
  nth=$(grep -n O_TMPFILE trace | cut -d: -f1)  # the call that finds no files without a name
  for before in none old; do
    start $before; (slowly -e inject=openat:error=EOPNOTSUPP:when="$nth")
    expect "a temporary name, $before" new "$(left)"
    start $before; (ulimit -f 100; slowly -e inject=openat:error=EOPNOTSUPP:when="$nth") 2>stderr
    expect "a temporary name and a limit, $before" $before "$(left)"
  done
  for signal in TERM HUP; do
    start old; chmod 600 ../safe/x
    slowly -e inject=openat:error=EOPNOTSUPP:when="$nth" -e inject=fchmod:delay_enter=1000000 &
    stop $signal
    expect "a temporary name, $signal" old "$(left)"
  done
else
  echo 'skipped: no strace here'
fi
exit $failed
