#!/bin/bash
# Lets the system calls of a run fail, one call on one file at a time, and compares the exit status, all of standard
# error, the output and the inputs. Usage: tests/faults.sh PATH_TO_KELVRA
# The exit status is 1 when a row failed, and 77 when strace is missing or may not trace.
# shellcheck disable=SC2053 # patterns stand on the right of ==
set -u; shopt -s extglob
tool=$(realpath -e -- "${1:?PATH_TO_KELVRA}") || exit 1
strace -o /dev/null true 2>/dev/null || { echo skipped; exit 77; }
work=$(mktemp -d) && cd "$work" && work=$(pwd -P) || exit 1
trap 'rm -rf "$work"' EXIT

# The LID's name and size in bytes, and what stands under the output's name: nothing, an old output, or a hard link to a
# source, which the run refuses. A LID without extension is opened twice, first as a probe of its name.
cases='part.kesp     600  nothing
       part.kesp     600  old
       part.kesp  307200  nothing
       part.kesp  307200  old
       part            0  nothing
       part.kesp     600  part.lidhdr
       part.kesp     600  qel.vpdinfo'
# What the run does when such a call on such a file fails so: it ends with a code and writes nothing, or goes on
#   same  as if nothing had failed
#   look  the same, but when something stands under the output's name, it may be an input and gets 34
#   zone  with the local time or UTC, which the C library takes when it cannot read the time zone
#   cut   and the output may end early
#   mute  without the line that was to be written
rules='@(LID|probe)             @(open*|read)        EACCES,EIO,ENOMEM         33
       LID                      fstat                EACCES,EIO,ENOMEM         32
       RUVPD                    open*                EACCES,EIO,ENOMEM         50
       RUVPD                    read                 EIO,ENOMEM                51
       VPDINFO                  open*                EACCES,EIO,ENOMEM         60
       VPDINFO                  read                 EIO,ENOMEM                61
       @(*again|RUVPD|VPDINFO|output)  fstat         EACCES,EIO,ENOMEM         look
       @(LID|RUVPD|VPDINFO)     stat                 EIO,ENOMEM                look
       @(LID|RUVPD|VPDINFO)     stat                 EACCES                    same
       output                   @(open*|?(f)trunc*)  EACCES,EIO,ENOMEM,ENOSPC  34
       output                   write                EIO,ENOSPC                cut
       stderr                   write                EIO,ENOSPC                mute
       zone                     *                    EACCES,EIO,ENOMEM,EINTR   zone
       probe                    fstat                EIO,ENOMEM                same
       !(zone)                  close                EIO,ENOSPC                same
       !(zone)                  *                    EINTR                     same'
r='ruvpd File is part.lidhdr|' bad_r='File name is part.lidhdr.|' end='kelvra process failed.|'
v='vpdinfo File is qel.vpdinfo|' bad_v='File name is qel.vpdinfo.|'
says=([0]="$r${v}kelvra process completed successfully.|"
  [32]='Error in getting file length of RU.|' [33]='Error in reading object file.|'
  [34]="$r${v}Error in writing output (.ruh) file.|"
  [50]="${bad_r}Unable to open RUVPD source file for input.|$end"
  [51]="$bad_r${r}Error reading RUVPD source file.|$end"
  [60]="$r${bad_v}Unable to open VPDINFO source file for input.|$end"
  [61]="$r$bad_v${v}Error reading VPDINFO source file.|$end")

fresh() { rm -rf run && cp -a good run; }
trace() {  # trace STRACE_OPTION...: one run in the folder run; its code, and its lines with | for each line's end
  (cd run && exec timeout 60 strace -e quiet=all -o ../log "$@" "$tool" -l "$lid") </dev/null 2>stderr
  code=$? said=$(tr '\n' '|' <stderr)
}
sums() { (cd "$1" && cksum -- !("${2-}")); }
left() {  # what the run left in the folder, in a word
  [ "$(sums run part.ruhx)" = "$(sums good part.ruhx)" ] || { echo inputs-changed; return; }
  [ "$(sums run)" = "$(sums good)" ] && { echo untouched; return; }
  for like in whole utc; do cmp -s run/part.ruhx $like && { echo $like; return; }; done
  cmp -s -n "$(stat -c %s run/part.ruhx)" run/part.ruhx whole && echo cut || echo wrong
}
check() {  # check ROW RULE [NTH_LINE]: the run that was traced
  local want=$usual files=untouched text got
  [[ $2 == +([0-9]) ]] && want=$2
  [[ $2 == look && $old != nothing ]] && want=34
  case $want,$2 in 0,zone) files='@(whole|utc)' ;; 0,cut) files='@(whole|cut)' ;; 0,*) files=whole ;; esac
  text=${says[want]} got=$(left)
  [ "$2" = mute ] && text=$(tr '|' '\n' <<<"${text%|}" | sed "$3d" | tr '\n' '|')
  if [[ $code == "$want" && $got == $files && $said == "$text" ]]; then ((++passed)); return; fi
  ((++failed)); echo "$lid, $size bytes, output $old: $1: expected $want, $files, $text actual $code, $got, $said"
}
inject() {  # inject FILE PATH: all that the rules have for the calls that a run makes on the file
  local on=(-P "${2##*/}" -P "$(realpath -sm "$2")") calls line call kind nth subject file calls_meant errors rule error
  local -A count=()
  fresh; trace "${on[@]}"; check "$1" same
  mapfile -t calls <log
  for line in "${calls[@]}"; do
    call=${line%%\(*} kind=$call nth=$((${count[${line%%\(*}]:-0} + 1)) count[${line%%\(*}]=$nth
    case $line in stat\(* | *stat*\(AT_FDCWD*) kind=stat ;; *stat*\(*) kind=fstat ;; esac
    subject=$1; [[ $1,$kind,$nth == LID,fstat,2 && $lid != part ]] && subject=LID-again
    [[ $lid,$1,$kind,$nth == part,LID,!(read),1 ]] && subject=probe
    while read -r file calls_meant errors rule; do
      [[ $subject == $file && $kind == $calls_meant ]] || continue
      for error in ${errors//,/ }; do
        fresh; trace "${on[@]}" -e "inject=$call:error=$error:when=$nth"
        grep -q INJECTED log || code+=,not-injected
        check "$subject, $call $nth: $error" "$rule" "$nth"
      done
    done <<<"$rules"
  done
}
feed() { while read -rN "$2" piece || [ "$piece" ]; do printf %s "$piece"; sleep 0.02; done <"good/$1" >"run/$1"; }
in_pieces() {  # in_pieces SOURCE STRACE_OPTION...: a run that gets the source through a pipe, bit by bit
  fresh; rm "run/$1"; mkfifo "run/$1"; feed "$1" $(($(stat -c %s "good/$1") / 8)) &
  trace -P "$work/run/$1" "${@:2}"; kill $! 2>/dev/null; wait
  [ "$(grep -c '^read.* = [1-9]' log)" -gt 4 ] || code+=,in-one-piece
  cp -p --remove-destination "good/$1" run; check "$1 in pieces ${*:2}" same
}
passed=0 failed=0; unset TZ
while read -r lid size old; do
  rm -rf good; mkdir good; seq 99999 | head -c "$size" >"good/$lid"
  printf ':RULOADID.81E00142\n%4100s\n:RUFLASH.Y' x >good/part.lidhdr  # takes more than one read
  printf ':PRODUCTID.5770SS1\n:VERLEVEL.V7R5' >good/qel.vpdinfo
  usual=0; fresh; TZ=UTC0 trace; mv run/part.ruhx utc
  fresh; trace; cp run/part.ruhx whole; tail -c +601 whole | cmp - "good/$lid" || code+=,wrong-output
  check 'nothing fails' same
  for i in part.lidhdr qel.vpdinfo; do in_pieces $i; in_pieces $i -e inject=read:error=EINTR:when=2..4; done
  case $old in nothing) ;; old) seq 99999 >good/part.ruhx ;; *) ln "good/$old" good/part.ruhx; usual=34 ;; esac
  inject LID "run/$lid"; inject RUVPD run/part.lidhdr; inject VPDINFO run/qel.vpdinfo
  inject output run/part.ruhx; inject stderr stderr; inject zone /etc/localtime
done <<<"$cases"
echo "$passed passed, $failed failed"; [ "$failed" = 0 ]
