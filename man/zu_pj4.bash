# Completion of zu_pj4 for bash. It asks the program's own --help, so that it
# knows every command and option that the installed program has.

_zu_pj4() {
  local program=${1/#\~/$HOME} word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local general help command= candidates= files=
  COMPREPLY=()
  # Bash makes "=" a word of its own.
  if [[ $word == "=" ]]; then
    word=
  elif [[ $before == "=" && $COMP_CWORD -ge 2 ]]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi

  general=$(LC_ALL=C "$program" --help 2>/dev/null) || return
  local commands
  commands=$(sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p' <<<"$general")
  local i
  for ((i = 1; i < COMP_CWORD; i++)); do
    if grep -qxF -e "${COMP_WORDS[i]}" <<<"$commands"; then
      command=${COMP_WORDS[i]}
      break
    fi
  done
  help=$general
  [[ -z $command ]] || help+=$'\n'$(LC_ALL=C "$program" "$command" --help 2>/dev/null)

  # "  --lang LANG:{en,ru}  what it is": the value of an option.
  local value=
  [[ $before != --* ]] ||
    value=$(sed -n "s/^  \(-h,\)\?$before \([A-Z,]\{1,\}\(:[^ ]*\)\?\)\( .*\)\?$/\2/p" <<<"$help" | head -n 1)
  if [[ $value == *{*}* ]]; then
    candidates=${value#*\{}
    candidates=${candidates%%\}*}
    candidates=${candidates//,/ }
  elif [[ $value == DIR ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$word")
    return
  elif [[ -n $value && $value != DEF ]]; then
    return
  elif [[ $word == -* && -z $value ]]; then
    candidates=$(grep -oE -e '^  (-h,)?--[a-z-]+' <<<"$help" | sed 's/^  //; s/^-h,//')
  elif [[ -z $command ]]; then
    candidates=$commands
  else
    local positionals
    positionals=$(sed -n '/^Positionals:/,/^$/s/^  \([A-Z|0-9]*\) [A-Z]*\(:{[^}]*}\)\?.*/\1\2/p' <<<"$help")
    case $positionals in
      *{*}*)
        candidates=${positionals#*\{}
        candidates=${candidates%%\}*}
        candidates=${candidates//,/ }
        ;;
      *FILE* | IN*) files=1 ;;
    esac
    # Names of systems go wherever a definition does; without a letter they are too many.
    if [[ ($positionals == *DEF* || $value == DEF) && $word == [A-Za-z]* ]]; then
      candidates+=" "$("$program" known --list 2>/dev/null | cut -f 2)
    fi
  fi
  mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "$word")
  if [[ -n $files ]]; then
    compopt -o filenames 2>/dev/null
    local names
    mapfile -t names < <(compgen -f -- "$word")
    COMPREPLY+=("${names[@]}")
  fi
}

complete -F _zu_pj4 zu_pj4
