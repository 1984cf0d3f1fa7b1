#!/usr/bin/env bash
# Checks all code with clang-tidy: tools/lint_code.sh BUILD_FOLDER JOBS. The build folder must be
# configured, and the headers of its forms must be made.
#
# Most of the time is spent on system headers. So the sources of a folder are checked together as
# one unit, and their local names must differ. Sources that are programs of their own are checked
# separately.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=$1
units=$build/lint
rm -rf "$units"
mkdir -p "$units"

# Returns the compile command of one file, applied to another file. The tests of a folder are also
# compiled as one unit.
compile_command() { # file, other
  local file=$1 commands=$build/compile_commands.json
  if ! grep -q -F "\"file\": \"$file\"" "$commands"; then
    file=$(sed -n "s|^ *\"file\": \"\(.*/Unity/unity_$(basename "${file%/*}")_cxx.cxx\)\".*|\1|p" "$commands")
  fi
  grep -m 1 -B 3 -F "\"file\": \"$file\"" "$commands" | sed "s|$file|$2|g"
  echo "},"
}

# Each unit is in a folder with the same name, where clang-tidy finds the same .clang-tidy files.
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

# Counts of warnings in system headers are dropped.
find "$units" "$root/fuzz" "$root/tools" -name '*.cpp' -print0 |
  xargs -0 -n 1 -P "$2" clang-tidy -p "$units" --quiet --checks=-bugprone-suspicious-include \
    2> >(grep -v 'warnings\? generated' >&2)
