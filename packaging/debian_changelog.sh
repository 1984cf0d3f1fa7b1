#!/usr/bin/env bash
# Converts CHANGELOG.md to the format of a Debian changelog:
#
#   debian_changelog.sh CHANGELOG.md
set -euo pipefail

maintainer='Quorvel maintainers <maintainers@quorvel.example>'
date=
item=

write_item() {
  [[ -z $item ]] || fmt -w 74 <<<"$item" | sed '1 s/^/  * /; 2,$ s/^/    /'
  item=
}

sign() { # the entry of a release, if there is one
  write_item
  [[ -z $date ]] || printf '\n -- %s  %s\n\n' "$maintainer" "$(LC_ALL=C date -u -R -d "$date")"
}

while IFS= read -r line; do
  case $line in
    '## '*)
      sign
      read -r _ version _ date <<<"$line"
      printf 'quorvel (%s) bookworm; urgency=medium\n\n' "$version"
      ;;
    '- '*)
      write_item
      item=${line#- }
      ;;
    '  '*) item+=" ${line#  }" ;;
  esac
done <"$1"
sign
