#!/usr/bin/env bash
# Checks all code with clang-tidy: tools/lint_code.sh BUILD_FOLDER JOBS. The build folder has been
# configured, and the headers of its forms are made.
#
# Most of the time goes into the headers of the system, so the sources of a folder are checked
# together, as one unit, in which their local names must differ. Where each source is a program of
# its own it is checked alone.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=$1
units=$build/lint
rm -rf "$units"
mkdir -p "$units"

# How one file is compiled, for another that takes its place. The tests of a folder are compiled
# together, too.
compile_command() { # file, other
  local file=$1 commands=$build/compile_commands.json
  if ! grep -q -F "\"file\": \"$file\"" "$commands"; then
    file=$(sed -n "s|^ *\"file\": \"\(.*/Unity/unity_$(basename "${file%/*}")_cxx.cxx\)\".*|\1|p" "$commands")
  fi
  grep -m 1 -B 3 -F "\"file\": \"$file\"" "$commands" | sed "s|$file|$2|g"
  echo "},"
}

# A unit lies in a folder of the same name, where clang-tidy finds the same exceptions.
for folder in $(find src tests bench -name '*.cpp' -printf '%h\n' | sort -u); do
  sources=("$root/$folder"/*.cpp)
  mkdir -p "$units/$folder"
  printf '#include "%s"\n' "${sources[@]}" >"$units/$folder/all.cpp"
  compile_command "${sources[-1]}" "$units/$folder/all.cpp"
done >"$units/commands"
find fuzz tools -name '*.cpp' | while read -r source; do
  compile_command "$root/$source" "$root/$source"
done >>"$units/commands"
find src tests bench -name .clang-tidy -exec cp --parents {} "$units" \;
{
  echo "["
  sed '$ s/,$//' "$units/commands"
  echo "]"
} >"$units/compile_commands.json"

# The counts of warnings in foreign headers say nothing.
find "$units" "$root/fuzz" "$root/tools" -name '*.cpp' -print0 |
  xargs -0 -n 1 -P "$2" clang-tidy -p "$units" --quiet --checks=-bugprone-suspicious-include \
    2> >(grep -v 'warnings\? generated' >&2)
