#!/usr/bin/env bash
# Checks that a file below src/ includes only headers of its own folder and of the folders below it,
# and that the core stays free of any window or command-line library.
# Prints each offence as file:line: reason; exit status 1 when there is one.
set -euo pipefail

# From the bottom up. The last one is the outermost: everything before it is the core.
LAYERS="util input settings lists engine output run cli"

cd "$(dirname "$0")/../src"

mapfile -t files < <(find . -type f \( -name '*.h' -o -name '*.cpp' \) -printf '%P\n' | LC_ALL=C sort)

offences=$(awk -v layers="$LAYERS" '
  BEGIN {
    count = split(layers, names, " ")
    for (i = 1; i <= count; i++) rank[names[i]] = i
  }
  function complain(line, reason) { print "src/" FILENAME ":" line ": " reason }

  FNR == 1 {
    if (split(FILENAME, part, "/") != 2 || !(part[1] in rank)) {
      complain(1, "stands in none of the folders " layers ", so nothing builds it")
      nextfile
    }
    own = part[1]
  }
  /^[ \t]*#[ \t]*include[ \t]*"/ {
    split($0, quoted, "\"")
    target = quoted[2]
    if (split(target, part, "/") != 2 || !(part[1] in rank))
      complain(FNR, "\"" target "\" is not written from src/ as folder/file.h")
    else if (rank[part[1]] > rank[own])
      complain(FNR, own " stands below " part[1] " and must not include \"" target "\"")
  }
  /^[ \t]*#[ \t]*include[ \t]*<(CLI\/|Q[A-Z]|Qt)/ && rank[own] < count {
    complain(FNR, "the core knows no window and no command line")
  }' "${files[@]}" </dev/null)

if [[ -n $offences ]]; then
  printf '%s\n' "$offences" >&2
  exit 1
fi
