# Completion of zelkova-batch for bash.
_zelkova_batch() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local commands="info show diff check convert split join apply take report" options
  case ${COMP_WORDS[1]} in
    info) options="--map --base --json" ;;
    show) options="--map --base --format --json --hex --output --force" ;;
    diff) options="--map --base --format --json" ;;
    check) options="--json" ;;
    convert) options="--to --into --base --force --json" ;;
    split | join) options="--to --kbit --base --force --json" ;;
    apply) options="--map --script --to --base --output --force --json" ;;
    take) options="--map --to --base --output --force --json" ;;
    report) options="--map --lang --base --output --force --json" ;;
  esac
  if [ "$COMP_CWORD" = 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$word")
  elif [ "$before" = --format ]; then
    mapfile -t COMPREPLY < <(compgen -W "table csv json" -- "$word")
  elif [ "$before" = --to ]; then
    mapfile -t COMPREPLY < <(compgen -W "raw hex srec" -- "$word")
  elif [ "$before" = --lang ]; then
    mapfile -t COMPREPLY < <(compgen -W "en ja" -- "$word")
  elif [ "$before" = --kbit ]; then
    mapfile -t COMPREPLY < <(compgen -W "64 128 256 512 1024 2048" -- "$word")
  elif [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
  else
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}
complete -F _zelkova_batch zelkova-batch
