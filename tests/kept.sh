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
refused() {  # refused CLAIM FILE COMMAND...: the command ends with 34, and the file holds what it held
  local before code
  before=$(cksum <"$2")
  "${@:3}" 2>"$work/lines" >/dev/null
  code=$?
  [ $code = 34 ] && [ "$(cksum <"$2")" = "$before" ] && return
  failed=1
  echo "$1: code $code, $2 $([ "$(cksum <"$2")" = "$before" ] && echo kept || echo changed)"
  cat "$work/lines"
}

# An input with a second link gets a new inode when the open of the output copies it up.
inputs low
for input in part.kesp part.lidhdr qel.vpdinfo; do ln "low/$input" "low/$input.link"; done
mkdir up work merged
if mount -t overlay overlay -o lowerdir=low,upperdir=up,workdir=work merged 2>/dev/null; then
  for input in part.kesp part.lidhdr qel.vpdinfo; do
    refused "overlay" "merged/$input" "$tool" -l merged/part.kesp -o "merged/$input"
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
    refused "unread source" $source "${user[@]}" "$tool" -l unread/part.kesp -r $source -o $source
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
code=$?
wait
[ "$code,$(cat renamed/part.kesp)" = 34,NEWER ] || { failed=1 && echo "renamed LID: code $code"; }

# A link that leads nowhere is a new output, also where it leads to a source that is missing.
inputs nowhere
ln -s none.pfginfo nowhere/part.ruhx
"$tool" -l nowhere/part.kesp -r nowhere/none.pfginfo -o nowhere/part.ruhx 2>/dev/null
code=$?
[ "$code,$(wc -c <nowhere/part.ruhx)" = 0,605 ] || { failed=1 && echo "link to nowhere: code $code"; }

# The regular file behind standard error or standard output; the messages are all that comes into it.
inputs behind
"$tool" -l behind/part.kesp -o behind/log 2>behind/log
code=$?
lines=$(wc -l <behind/log)
[ "$code,$lines" = 34,3 ] || { failed=1 && echo "standard error: code $code, $lines lines"; }
"$tool" -l behind/part.kesp -o behind/out >behind/out 2>/dev/null
code=$?
[ "$code,$(wc -c <behind/out)" = 34,0 ] || { failed=1 && echo "standard output: code $code"; }

# A closed standard stream is not the file that is opened next.
for _ in new old; do
  "$tool" -l behind/part.kesp -o behind/part.ruhx <&- >&- 2>&-
  code=$?
  [ "$code,$(wc -c <behind/part.ruhx)" = 0,605 ] || { failed=1 && echo "closed streams: code $code"; }
done
exit $failed
