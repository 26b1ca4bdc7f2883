# Completion of kelvra-image for bash.

_kelvra_image()
{
  local cur=${COMP_WORDS[COMP_CWORD]} at=$((COMP_CWORD - 1)) first words='' kinds='' any='' kind
  local inputs='-l --lid -r --source --vpdinfo' image='-o --output' times='--timestamp --utc'
  # "--option=file" is three words.
  [[ $cur == '=' ]] && cur='' at=$COMP_CWORD
  [[ ${COMP_WORDS[at]} == '=' ]] && at=$((at - 1))
  # --disable takes several rules.
  for ((first = at; first > 1; first--)); do [[ ${COMP_WORDS[first]} == -* ]] && break; done
  [[ ${COMP_WORDS[first]} == --disable ]] && at=$first

  case ${COMP_WORDS[1]} in
    build) words="$inputs $image $times --lint --depfile --verbose" ;;
    deps) words="$inputs $image --json" ;;
    lint) words="$inputs $image $times --disable --json" ;;
    show | list | diff) words='--json' kinds=ruhx any=yes ;;
    verify) words="$inputs $times --verbose --json" kinds=ruhx any=yes ;;
    extract) words=$image kinds=ruhx any=yes ;;
    fields) words='--json' ;;
  esac
  words+=' -h --help --version'
  [[ $cur == -* ]] || case $COMP_CWORD:${COMP_WORDS[1]}:${COMP_WORDS[at]} in
    1:*) words='build deps lint show list diff verify extract fields' ;;
    *:extract:-o | *:extract:--output) kinds=kesp any='' ;;
    *:-l | *:--lid) kinds=kesp any=yes ;;
    *:-r | *:--source) kinds='lidhdr pfginfo sfginfo vpdinfo' any='' ;;
    *:-o | *:--output) kinds=ruhx ;;
    *:--vpdinfo) kinds=vpdinfo any='' ;;
    *:--depfile) kinds=d ;;
    *:--timestamp) return ;;
    *:--disable) words=$("${1/#\~/$HOME}" fields 2>/dev/null | sed -n 's/^rule \([^ ]*\) .*/\1/p') ;;
  esac

  if [[ $kinds && $cur != -* ]]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(for kind in $kinds; do compgen -f -X "!*.$kind" -- "$cur"; done; compgen -d -- "$cur")
    # A LID and an image may have any name.
    [[ $any && ! ${COMPREPLY[*]} ]] && mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  else
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
  fi
}

complete -F _kelvra_image kelvra-image
