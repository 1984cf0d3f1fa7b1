#!/usr/bin/env bash
# Checks that what tells the options of quorvel-cli tells all of them, and nothing else:
#
#   documented_options.sh QUORVEL-CLI
#
# The truth comes from the program itself, its help.
set -euo pipefail

cli=$1
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
completions=$root/packaging/completions
status=0

# Splits "-c,--context" and "--[no-]hyphens", "{-c,--context=}" too.
each_name() {
  sed -E 's/--\[no-\]([a-z-]*)/--\1,--no-\1/g' | grep -oE -- '(^|[^a-zA-Z0-9-])--?[a-zA-Z][a-z-]*' |
    tr -d ' [({,|='"\"'" | sort -u
}

check() { # where; what is told there is read
  local differences
  differences=$(diff <(echo "$options") <(each_name)) || {
    printf '%s:\n%s\n' "$1" "$differences" >&2
    status=1
  }
}

options=$("$cli" --help | awk '/^  -/ { print $1 }' | each_name)
(($(wc -l <<<"$options") > 20)) || status=1

# An item is the line behind .TP or .TQ.
awk 'item { print " " $0 } { item = /^\.T[PQ]/ }' "$root/packaging/man/quorvel-cli.1" |
  sed -E 's/\\-/-/g; s/\\f.//g; s/^ \.[A-Z]+//' | check 'manual page'
sed -n '/quorvel-cli \[OPTIONS\]/,/^$/ p' "$root/README.md" | check README.md
sed -n "/values='-h/,/'\$/ p" "$completions/quorvel-cli.bash" | check 'bash completion'
sed -nE 's/^  .(\([^)]*\))?([^[]*)\[.*/\2/p' "$completions/quorvel-cli.zsh" | check 'zsh completion'
sed -nE "s/ -[rFx].*| -d '.*//; s/-s (.)/-\1/; s/-l /--/; s/^complete -c quorvel-cli//p" \
  "$completions/quorvel-cli.fish" | check 'fish completion'

exit $status
