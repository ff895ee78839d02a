# Completion of quorval-batch for bash.  Analyses, fields and examples are asked of the program.

# The words of a choice, or on and off of a check, of the field $3.
_quorval_batch_values() {
  "$1" describe "$2" 2>/dev/null | awk -v key="$3" '
    NR > 2 && /^[^ ]/ { ours = $1 == key; if (ours && $2 == "check") print "on\noff" }
    ours && /^  / { print $1 }'
}

_quorval_batch() {
  local program=${COMP_WORDS[0]} command=${COMP_WORDS[1]} analysis=${COMP_WORDS[2]-}
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local words='' line
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    words='list describe run data convert demo verify --help --version'
  elif [ "$COMP_CWORD" -eq 2 ] && [ "$command" = data ]; then
    words='sort transform format'
  elif [ "$COMP_CWORD" -eq 2 ] && [[ $command = run || $command = describe ]]; then
    words=$("$program" list 2>/dev/null | cut -d' ' -f1)
  elif [ "$before" = --set ] && [ "$command" = run ]; then
    words=$("$program" describe "$analysis" 2>/dev/null | awk '/^$/ { ++part } part == 1 && /^[^ ]/ { print $1 "=" }')
    compopt -o nospace
  elif [[ $command = run && ( $before = '=' || $current = '=' ) ]]; then
    # bash makes "=" a word of its own.
    local key=$before
    [ "$before" = '=' ] && key=${COMP_WORDS[COMP_CWORD - 2]} || current=''
    words=$(_quorval_batch_values "$program" "$analysis" "$key")
  elif [ "$before" = --demo ]; then
    while IFS= read -r line; do
      [[ ${line@Q} = "$current"* || $line = "$current"* ]] && COMPREPLY+=("${line@Q}")
    done < <("$program" demo 2>/dev/null)
    return
  elif [ "$before" = --plot-format ]; then
    words='png svg pdf'
  elif [[ $current = -* ]]; then
    words=$("$program" "$command" --help 2>/dev/null | grep -o '^ *--[a-z-]*')
  fi
  [ -z "$words" ] || mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

# What is no word of ours is a file.
complete -o default -F _quorval_batch quorval-batch
