# Completion of kelvra for bash.

_kelvra()
{
  local cur=${COMP_WORDS[COMP_CWORD]} kinds='' kind
  case ${COMP_WORDS[COMP_CWORD - 1]} in
    -l) kinds=kesp ;;
    -r) kinds='lidhdr pfginfo sfginfo vpdinfo' ;;
    -o) kinds=ruhx ;;
  esac
  if [[ $kinds ]]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(for kind in $kinds; do compgen -f -X "!*.$kind" -- "$cur"; done; compgen -d -- "$cur")
    # A LID may have any name.
    [[ $kinds == kesp && ! ${COMPREPLY[*]} ]] && mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  else
    mapfile -t COMPREPLY < <(compgen -W '-l -r -o' -- "$cur")
  fi
}

complete -F _kelvra kelvra
