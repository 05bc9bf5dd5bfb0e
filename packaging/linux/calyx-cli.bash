# Completion of calyx-cli for bash. Commands and options come from the program's own help.

_calyx_cli() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} program=${COMP_WORDS[0]} command= i help
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
      --user-dir | --data-dir | --language) ((++i)) ;;
      -*) ;;
      *) command=${COMP_WORDS[i]}; break ;;
    esac
  done
  case $prev in
    --user-dir | --data-dir)
      mapfile -t COMPREPLY < <(compgen -d -- "$cur"); return ;;
    --serial)
      mapfile -t COMPREPLY < <(compgen -G "/dev/ttyUSB*"; compgen -G "/dev/ttyACM*"; compgen -G "/dev/ttyS*"); return ;;
  esac
  help=$("$program" ${command:+"$command"} --help 2>/dev/null)
  if [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "--help $(sed -n 's/^  \(--[a-z0-9-]*\).*/\1/p' <<<"$help")" -- "$cur")
  elif [[ -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$help")" -- "$cur")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  fi
}
complete -o filenames -F _calyx_cli calyx-cli
