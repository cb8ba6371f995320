# Completes the command line of registry-docs in bash.

# The options that go with what stands before the word, less those that stand there already.
_registry_docs_options() {
  local given=" $* " options option
  local sources='--root --recursive --registry --tools --save-tools --timeout --offline --strict --jobs'
  case $given in
    ' init '*' -- '*) return ;;
    ' init '*)
      printf '%s\n' --markers --heading  # as often as there are blocks
      options='--server --dry-run --root --timeout --help'
      ;;
    *' --help '* | *' -h '* | *' --version '*) return ;;
    *' --check '*) options="--diff --format --color --fail-on --quiet $sources" ;;
    *' --write '*) options="--exit-code --quiet $sources" ;;
    *' --list '* | *' --print-model '*) options=$sources ;;
    *' --print-layout '*) return ;;
    *) options="init --check --write --list --print-layout --print-model --help --version $sources" ;;
  esac
  for option in $options; do
    [[ $given == *" $option "* ]] || printf '%s\n' "$option"
  done
}

_registry_docs() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} wanted
  # Bash makes a word of its own of the equals sign in --root=DIR.
  if [ "$word" = = ]; then
    word=
  elif [ "$option" = = ]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  case $option in
    --root) wanted=(-d) ;;
    --registry | --tools | --save-tools | --markers) wanted=(-f) ;;
    --timeout | --jobs | --heading | --server) wanted=(-W '') ;;
    --fail-on) wanted=(-W 'any breaking') ;;
    --print-layout) wanted=(-W 'count list prompts reference resources tool tools') ;;
    --format) wanted=(-W 'text json github') ;;
    --color) wanted=(-W 'auto always never') ;;
    *) wanted=(-W "$(_registry_docs_options "${COMP_WORDS[@]:1:COMP_CWORD-1}")") ;;
  esac
  [ "${wanted[0]}" = -W ] || compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen "${wanted[@]}" -- "$word")
}

complete -F _registry_docs registry-docs gen_registry_docs
