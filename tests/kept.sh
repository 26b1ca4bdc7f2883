#!/bin/bash
# Runs whose output is one of the files that must stay: the run is refused, and the file keeps its bytes. These cases
# need a mount, another user or a shell's redirections. Usage: tests/kept.sh PATH_TO_KELVRA
set -u
tool=$(realpath -e -- "${1:?PATH_TO_KELVRA}") || exit 1
work=$(mktemp -d) && chmod 755 "$work" && cd "$work" || exit 1
trap 'umount "$work/merged" 2>/dev/null; rm -rf "$work"' EXIT
failed=0

inputs() {  # inputs FOLDER: a LID and its sources
  mkdir -p "$1" && printf ABCDE >"$1/part.kesp" && echo ':RUNAME.X' >"$1/part.lidhdr" && echo >"$1/qel.vpdinfo"
}
expect() {  # expect CLAIM WANTED ACTUAL
  [ "$2" = "$3" ] || { failed=1; echo "$1: expected $2, actual $3"; }
}
refused() {  # refused FILE COMMAND...: the command ends with 34, and the file holds what it held
  local before
  before=$(cksum <"$1")
  "${@:2}" >/dev/null 2>&1
  expect "$1 as output" "34 $before" "$? $(cksum <"$1")"
}

# An input with a second link gets a new inode when the open of the output copies it up.
inputs low
for input in part.kesp part.lidhdr qel.vpdinfo; do ln "low/$input" "low/$input.link"; done
mkdir up work merged
if mount -t overlay overlay -o lowerdir=low,upperdir=up,workdir=work merged 2>/dev/null; then
  for input in part.kesp part.lidhdr qel.vpdinfo; do
    refused "merged/$input" "$tool" -l merged/part.kesp -o "merged/$input"
  done
else
  echo "skipped: no overlay mount here"
fi

# A source that this user may write but not read; the second one is passed over for part.lidhdr.
inputs unread
user=()
[ "$(id -u)" != 0 ] || user=(setpriv --reuid=65534 --clear-groups)
if "${user[@]}" "$tool" 2>&1 | grep -q Usage; then
  for source in unread/unit.pfginfo unread/part; do
    echo ':RUFLASH.Y' >$source
    chmod 222 $source
    refused $source "${user[@]}" "$tool" -l unread/part.kesp -r $source -o $source
  done
else
  echo "skipped: no other user here"
fi

# A LID that another file replaces while the run waits for a source.
inputs renamed
rm renamed/qel.vpdinfo
mkfifo renamed/qel.vpdinfo
echo NEWER >renamed/new
{ sleep 0.3; mv renamed/new renamed/part.kesp; echo >renamed/qel.vpdinfo; } &
"$tool" -l renamed/part.kesp -o renamed/part.kesp 2>/dev/null
expect "renamed LID" "34 NEWER" "$? $(cat renamed/part.kesp)"
wait

# A link that leads nowhere is a new output, also where it leads to a source that is missing.
inputs nowhere
ln -s none.pfginfo nowhere/part.ruhx
"$tool" -l nowhere/part.kesp -r nowhere/none.pfginfo -o nowhere/part.ruhx 2>/dev/null
expect "link to nowhere" "0 605" "$? $(wc -c <nowhere/part.ruhx)"

# Unless an input comes to stand there before the third open, which makes what the link leads to.
inputs late
ln -s target late/part.ruhx
if strace -o /dev/null true 2>/dev/null; then
  { sleep 0.2; ln late/part.lidhdr late/target; } &
  refused late/part.lidhdr env ASAN_OPTIONS=detect_leaks=0 strace -o late/trace -P late/part.ruhx \
    -e inject=openat:delay_enter=600000:when=3 "$tool" -l late/part.kesp -o late/part.ruhx
  wait
else
  echo "skipped: no strace here"
fi

# The regular file behind standard error or standard output; the messages are all that comes into it.
inputs behind
"$tool" -l behind/part.kesp -o behind/log 2>behind/log
expect "standard error" "34 3" "$? $(wc -l <behind/log)"
"$tool" -l behind/part.kesp -o behind/out >behind/out 2>/dev/null
expect "standard output" "34 0" "$? $(wc -c <behind/out)"

# A closed standard stream is not the file that is opened next.
for output in new old; do
  "$tool" -l behind/part.kesp -o behind/part.ruhx <&- >&- 2>&-
  expect "closed streams, $output output" "0 605" "$? $(wc -c <behind/part.ruhx)"
done
exit $failed
