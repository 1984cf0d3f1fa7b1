# shellcheck shell=bash
# Completion of the arguments of quorvel-cli for bash.

# Completes the word under the cursor to folders and to files with one of some extensions, in
# any case of their letters; without an extension, or where there is none such, to any file.
_quorvel_cli_files() { # word, extensions as "a|b"
  compopt -o filenames -o default 2>/dev/null # fails, and need not work, in a test
  mapfile -t COMPREPLY < <(
    shopt -s extglob nocasematch
    compgen -d -- "$1"
    compgen -f -X "${2:+!*.@($2)}" -- "$1"
  )
}

_quorvel_cli() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} values=
  # Bash cuts "--order=frequency" into three words.
  if [[ $word == = ]]; then
    word=
  elif [[ $option == = ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  COMPREPLY=()
  case $option in
    --input-type) values='txt html docx odt epub' ;;
    --format) values='text tsv json' ;;
    --sort) values='place right left match' ;;
    --encoding) values='auto utf-8 ansi unicode' ;;
    --output-encoding) values='windows-1252 utf-8' ;;
    --order) values='alphabetical frequency' ;;
    --language) values='auto en de es pt it fr all none' ;;
    --answer) values='yes no default' ;;
    -c | --context) values='0 1 2 3 4 5 6 7 8 9' ;;
    --min-count) values='1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20' ;;
    -o | --output | --picture)
      _quorvel_cli_files "$word"
      return
      ;;
    -k | --keywords-file | --stop-words)
      _quorvel_cli_files "$word" txt
      return
      ;;
    -s | --settings | --save-settings)
      _quorvel_cli_files "$word" lvz
      return
      ;;
    -e | --keywords | --extra-stop-words | -j | --jobs) return ;; # the user's own
  esac
  if [[ -z $values && $word == -* ]]; then
    values='-h --help --input-type -o --output --format --sort --picture -s --settings --save-settings --index --no-index
      --use-index -j --jobs --encoding --notes --output-encoding --create --search -k --keywords-file --no-keywords-file -e --keywords
      -c --context --order --frequencies --no-frequencies --line-breaks --no-line-breaks --hyphens
      --no-hyphens --numerals --no-numerals --skip-lists --no-skip-lists --min-count --stop-words
      --language --extra-stop-words --answer -q --quiet -V --version'
  fi
  if [[ -n $values ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$values" -- "$word")
  else
    _quorvel_cli_files "$word" 'txt|docx|odt|epub|*htm*'
  fi
}

complete -F _quorvel_cli quorvel-cli
