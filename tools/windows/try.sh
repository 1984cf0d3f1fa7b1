#!/usr/bin/env bash
# Tests the Windows programs under Wine:
#
#   try.sh WINDOWS-BUILD-FOLDER LINUX-BUILD-FOLDER
#
# First it runs the tests of the core and of the command line. Then it runs the program on documents
# of all kinds, in both readings. The listings must equal those of the Linux program byte for byte,
# except for the lines with the file and the time. Wine keeps its drive in the Windows build folder
# and changes nothing else.
set -euo pipefail

windows=$(realpath "$1")
linux=$(realpath "$2")
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/windows/wine.bash
. "$root/tools/windows/wine.bash"
unset DISPLAY WAYLAND_DISPLAY
start_wine "$windows/wine"

echo "Tests of the core and of the command line"
# Tests that need features missing in Windows are reported as skipped, with the reason.
(cd "$windows" && wine ./quorvel_tests.exe --gtest_brief=1 </dev/null) >"$desk/tests" 2>&1 ||
  failed=1
tr -d '\r' <"$desk/tests"
[[ -z ${failed:-} ]] || exit 1

echo "Whole runs"
# As installed by a user: the program and its data in one folder.
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
compare() { # what, argument...
  "$linux/quorvel-cli" -q -o here.txt "${@:2}"
  quorvel -q -o there.txt "${@:2}"
  same "$1" here.txt there.txt
}
compare_streams() { # what, file for standard input, argument...
  "$linux/quorvel-cli" -q "${@:3}" - <"$2" >here.txt
  wine "$desk/quorvel/quorvel-cli.exe" -q "${@:3}" - <"$2" >there.txt
  same "$1" here.txt there.txt
}
for document in "$root"/tests/data/docx/*.docx; do
  compare "concordance of $(basename "$document")" "$document"
done
compare_streams "sample by standard input, in Windows-1252" "$sample" --output-encoding windows-1252

echo "Whole runs in Unicode"
unicode=(--encoding unicode)
lighthouse=$'\u043c\u0430\u044f\u043a.txt' # "mayak" in Cyrillic
cat >"$lighthouse" <<'END'
Старый маяк стоял над морем. Каждый вечер смотритель зажигал огонь, и корабли
видели его издалека. «Море не спит», — говорил он, — «и маяк не спит».
Ёлка у маяка росла одна; ей, верно, было холодно.
END
printf '\xd0\xb9\xd0\xb8 \xd0\xb8\xcc\x86\xd0\xb8\n' >>"$lighthouse" # the same word, with its letters encoded in two ways
compare "concordance of a Cyrillic text" "${unicode[@]}" "$lighthouse"
compare "search for a word in it" "${unicode[@]}" -e $'\u043c\u043e\u0440*' "$lighthouse"
compare "rows of it" "${unicode[@]}" --format tsv "$lighthouse"
compare_streams "the same by standard input" "$lighthouse" "${unicode[@]}"
"$linux/quorvel-cli" -q "${unicode[@]}" -o here.txt "$lighthouse"
quorvel -q "${unicode[@]}" "$lighthouse"
same "concordance beside it" here.txt "${lighthouse%.txt}.qvl.conc.txt"
for document in "$root"/tests/data/{docx,packed}/*.{docx,odt,epub}; do
  [[ -f $document ]] || continue # there is no document of this kind
  kind=${document##*.}
  compare "concordance of $(basename "$document")" "${unicode[@]}" --notes "$document"
  compare_streams "the same by standard input" "$document" "${unicode[@]}" --input-type "$kind"
done
mkdir folder
cp "$lighthouse" "$sample" "$root"/tests/data/packed/*.{docx,odt,epub} folder
"$linux/quorvel-cli" -q "${unicode[@]}" --format tsv -o here.txt folder
quorvel -q "${unicode[@]}" --format tsv -o there.txt --jobs 2 folder
sed -i 's,\\,/,' there.txt # the separator between folder and file
same "rows of a folder" here.txt there.txt
[[ -z $(find "$WINEPREFIX/drive_c" -maxdepth 1 -name 'QVL*') ]] || {
  echo "A temporary folder was left" >&2
  exit 1
}
