#!/usr/bin/env bash
# Checks that each file below src/ includes only headers of its own folder and of lower folders, and
# that the core does not use window or command-line libraries. Prints each violation as file:line:
# reason. The exit status is 1 when there is one.
set -euo pipefail

# The folders of the core, from the lowest to the highest.
LAYERS="util files input unicode settings lists engine lines output run"
# The front ends. Each may include the core, but not another front end.
FRONT_ENDS="cli ui"

cd "$(dirname "$0")/../src"

mapfile -t files < <(find . -type f \( -name '*.h' -o -name '*.cpp' \) -printf '%P\n' | LC_ALL=C sort)

offences=$(awk -v layers="$LAYERS" -v fronts="$FRONT_ENDS" '
  BEGIN {
    count = split(layers, names, " ")
    for (i = 1; i <= count; i++) rank[names[i]] = i
    top = count + 1
    count = split(fronts, names, " ")
    for (i = 1; i <= count; i++) rank[names[i]] = top
  }
  function complain(line, reason) { print "src/" FILENAME ":" line ": " reason }

  FNR == 1 {
    if (split(FILENAME, part, "/") != 2 || !(part[1] in rank)) {
      complain(1, "is in none of the folders " layers " " fronts ", so it is not built")
      nextfile
    }
    own = part[1]
  }
  /^[ \t]*#[ \t]*include[ \t]*"/ {
    split($0, quoted, "\"")
    target = quoted[2]
    if (own == "ui" && target ~ /^ui_[a-z_]+\.h$/) next # made from a .ui file
    if (split(target, part, "/") != 2 || !(part[1] in rank))
      complain(FNR, "\"" target "\" is not written from src/ as folder/file.h")
    else if (rank[part[1]] > rank[own])
      complain(FNR, own " is below " part[1] " and must not include \"" target "\"")
    else if (rank[part[1]] == top && part[1] != own)
      complain(FNR, own " and " part[1] " are both front ends: it must not include \"" target "\"")
  }
  /^[ \t]*#[ \t]*include[ \t]*<CLI\// && own != "cli" {
    complain(FNR, "only cli may use the command-line library")
  }
  /^[ \t]*#[ \t]*include[ \t]*<(Q[A-Z]|Qt)/ && own != "ui" {
    complain(FNR, "only ui may use the window library")
  }' "${files[@]}" </dev/null)

if [[ -n $offences ]]; then
  printf '%s\n' "$offences" >&2
  exit 1
fi
