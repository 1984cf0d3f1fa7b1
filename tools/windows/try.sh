#!/usr/bin/env bash
# Tries what was built for Windows, under Wine:
#
#   try.sh WINDOWS-BUILD-FOLDER LINUX-BUILD-FOLDER
#
# The tests of the core and of the command line; then the concordance of the sample, which must be
# that of the program of this system, byte for byte, but for the lines that name file and time.
# Wine keeps its drive in the Windows build folder and touches nothing else.
set -euo pipefail

windows=$(realpath "$1")
linux=$(realpath "$2")
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/windows/wine.bash
. "$root/tools/windows/wine.bash"
unset DISPLAY WAYLAND_DISPLAY
start_wine "$windows/wine"

echo "Tests of the core and of the command line"
# Those that need what Windows does not have are told as skipped, each with its reason.
(cd "$windows" && wine ./quorvel_tests.exe --gtest_brief=1 </dev/null) >"$desk/tests" 2>&1 ||
  failed=1
tr -d '\r' <"$desk/tests"
[[ -z ${failed:-} ]] || exit 1

echo "Whole runs"
# As a user has it: program and data in a folder of their own.
cmake --install "$windows" --prefix "$desk/quorvel" >/dev/null
cd "$desk"
quorvel() {
  wine "$desk/quorvel/quorvel-cli.exe" "$@" </dev/null
}

sample=$root/data/sample/the-lamp-at-harbour-end.txt
cp "$sample" $'\u00e9 \u03c9.txt'
"$linux/quorvel-cli" -q -o here.txt "$sample"
"$linux/quorvel-cli" -q --format json -o here.json "$sample"
quorvel -q -o 'C:\there.txt' "Z:${sample//\//\\}"
same "concordance, paths with drive letters" here.txt "$WINEPREFIX/drive_c/there.txt"
quorvel -q $'\u00e9 \u03c9.txt'
same "concordance beside an input named in two scripts" here.txt $'\u00e9 \u03c9.qvl.conc.txt'
quorvel -q $'\u00e9 \u03c9.txt'
same "concordance over the old one" here.txt $'\u00e9 \u03c9.qvl.conc.txt'
quorvel -q "$sample" -o - >out
iconv -f WINDOWS-1252 -t UTF-8 here.txt | tr -d '\r' >here.lines
same "concordance on standard output" here.lines out
quorvel -q --format json "$sample" -o - >out
same "rows" here.json out
for document in "$root"/tests/data/docx/*.docx; do
  "$linux/quorvel-cli" -q -o here.txt "$document"
  quorvel -q -o there.txt "$document"
  same "concordance of $(basename "$document")" here.txt there.txt
done
[[ -z $(find "$WINEPREFIX/drive_c" -maxdepth 1 -name 'QVL*') ]] || {
  echo "A temporary folder was left" >&2
  exit 1
}
