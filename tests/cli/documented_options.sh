#!/usr/bin/env bash
# Checks that what tells the options of quorvel-cli tells all of them, and nothing else:
#
#   documented_options.sh QUORVEL-CLI
#
# The truth comes from the program itself: the options from its help, the words and numbers
# that an option takes from the message that refuses another. Each place is brought into the
# same lines, "--order" and "--order frequency", and compared.
set -euo pipefail

cli=$1
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
completions=$root/packaging/completions
# shellcheck source=packaging/completions/quorvel-cli.bash
source "$completions/quorvel-cli.bash"

# Splits "-c,--context" and "--[no-]hyphens".
each_name() {
  sed -E 's/--\[no-\](.*)/--\1,--no-\1/' | tr , '\n'
}

help_options() {
  "$cli" --help | awk '/^  -/ { print $1 }' | each_name
}

# Those among the options that take a WORD or a number, with what they take.
help_values() { # WORD or N
  local names option refusal value
  while read -r names; do
    for option in $(each_name <<<"$names"); do
      refusal=$("$cli" "$option" '?' 2>&1 || true)
      if [[ $refusal =~ 'in range '([0-9]+)' to '([0-9]+) ]]; then
        seq -f "$option %g" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
      elif [[ $refusal =~ 'not in {'(.+)'}' ]]; then
        for value in ${BASH_REMATCH[1]//,/ }; do echo "$option $value"; done
      else
        echo "$option: cannot be tried: $refusal"
      fi
    done
  done < <("$cli" --help | awk -v takes="$1" '/^  -/ && $2 == takes { print $1 }')
}

# An item is the line behind .TP or .TQ; upper-case letters stand for what the user puts there.
manual() {
  sed -E 's/\\-/-/g; s/\\f.//g; s/[",|]//g' "$root/packaging/man/quorvel-cli.1" |
    awk '
      item && $2 ~ /^-/ {
        for (i = 2; i <= NF && $i ~ /^-/; i++) print $i
        for (; i <= NF; i++) if ($i !~ /^[A-Z]+$/) for (j = 2; $j ~ /^-/; j++) print $j, $i
      }
      { item = /^\.T[PQ]/ }'
}

bash_completion() { # what stands between an option and its value, if anything
  local option
  complete_in_bash -
  for option in "${options[@]}"; do
    [[ ! ${takes[$option]:-} ]] || complete_in_bash "$option" "$@" '' | sed "s/^/$option /"
  done
}

complete_in_bash() { # the words behind the program's name
  COMP_WORDS=(quorvel-cli "$@")
  COMP_CWORD=$#
  _quorvel_cli
  printf '%s\n' "${COMPREPLY[@]}"
}

# Its one call says all: "(-a --all)--all=[why]:what:(values)".
zsh_completion() {
  zsh -f -c '_arguments() { print -rl -- "$@" }; source "$1"' zsh "$completions/quorvel-cli.zsh" |
    sed -nE 's/^(\([^)]*\))?(-[^=[]+)=?\[/\2 [/p' |
    awk '{
      print $1
      if (!match($0, /:\([^)]*\)$/)) next
      count = split(substr($0, RSTART + 2, RLENGTH - 3), values, " ")
      for (i = 1; i <= count; i++) print $1, values[i]
    }'
}

# Each line says one option: "complete -c quorvel-cli -s a -l all -xa 'values' -d 'what'".
fish_completion() {
  sed -nE 's/^complete -c quorvel-cli //p' "$completions/quorvel-cli.fish" |
    sed -E "s/ -d '.*//; s/-s (.)/-\1/; s/-l ([^ ]+)/--\1/; s/ -(rF|x)$//" |
    awk -F " -xa '" '{
      names = split($1, name, " ")
      for (i = 1; i <= names; i++) print name[i]
      sub(/\x27$/, "", $2)
      count = split($2, values, " ")
      for (i = 1; i <= names; i++) for (j = 1; j <= count; j++) print name[i], values[j]
    }'
}

readme() {
  sed -n '/quorvel-cli \[OPTIONS\]/,/^$/ p' "$root/README.md" |
    grep -oE -- ' --?(\[no-\])?[a-zA-Z][a-z-]*' | tr -d ' ' | each_name
}

mapfile -t options < <(help_options)
words=$(help_values WORD)
numbers=$(help_values N)
declare -A takes=()
while read -r option _; do takes[$option]=1; done <<<"$words"$'\n'"$numbers"
((${#options[@]} > 20 && ${#takes[@]} > 4)) || {
  echo "The help could not be read: ${#options[@]} options" >&2
  exit 1
}

status=0
complain() { # where, what is wrong, lines
  local line
  while read -r line; do
    [[ -z $line ]] || echo "$1: $2: $line" >&2
    [[ -z $line ]] || status=1
  done <<<"$3"
}

check() { # where, what is told there, what must be told
  local told wanted
  told=$(sort -u <<<"$2")
  wanted=$(printf '%s\n' "${@:3}" | sort -u)
  complain "$1" 'is missing' "$(comm -13 <(echo "$told") <(echo "$wanted"))"
  complain "$1" 'is none' "$(comm -23 <(echo "$told") <(echo "$wanted"))"
  echo "$1: $(wc -l <<<"$wanted") lines compared"
}

check 'manual page' "$(manual)" "${options[@]}" "$words"
check 'bash completion' "$(bash_completion)" "${options[@]}" "$words" "$numbers"
check 'bash completion behind =' "$(bash_completion '=')" "${options[@]}" "$words" "$numbers"
check 'zsh completion' "$(zsh_completion)" "${options[@]}" "$words" "$numbers"
check 'fish completion' "$(fish_completion)" "${options[@]}" "$words" "$numbers"
check README.md "$(readme)" "${options[@]}"
exit $status
