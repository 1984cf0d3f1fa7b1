#!/usr/bin/env bash
# Tests the installer for Windows under Wine:
#
#   with_x_server.sh try_installer.sh INSTALLER ZIP LINUX-BUILD-FOLDER PICTURE
#
# Quorvel is installed, used as from "Open with", the start menu and a command line, and uninstalled.
# Then it is installed over an older version in a folder of the user's choice. After each
# uninstallation, the registry and the files on the drive must be as before, except for the
# settings and concordances. The picture shows the screen when a test fails.
set -euo pipefail

installer=$(realpath "$1")
zip=$(realpath "$2")
linux=$(realpath "$3")
picture=$(realpath "$4")
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/windows/wine.bash
. "$root/tools/windows/wine.bash"
# shellcheck source=tools/windows/window.bash
. "$root/tools/windows/window.bash"
start_wine "$desk/wine"

classes='HKCU\Software\Classes'
document=Quorvel.Document
entry='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvel'

must_equal() { # what, expected, found
  diff <(echo "$2") <(echo "$3") >&2 || fail "$1: expected '<', found '>'"
  echo "as expected: $1"
}

registry() { # key
  wine reg export "$1" "$desk/key" /y >/dev/null </dev/null
  iconv -f UTF-16 "$desk/key" | tr -d '\r'
}

value() { # key, name of a text in it
  registry "$1" | sed -n "s/^\"$2\"=\"\(.*\)\"\$/\1/p" | sed 's/\\\(.\)/\1/g'
}

# Lists the parts of the registry where installers write, and all files with their sizes. Wine keeps
# measurements of the screen under "Temporary System Parameters".
snapshot() { # folder
  local key
  mkdir "$1"
  for key in HKCU 'HKLM\Software\Classes' 'HKLM\Software\Microsoft\Windows\CurrentVersion'; do
    registry "$key" | grep -v -e 'Wine\\Temporary System Parameters' -e '^$' >>"$1/registry"
  done
  (cd "$WINEPREFIX/drive_c" && find . -path '*/Temp/*' -prune -o -printf '%y %P %s\n' |
    sed -E '/^d/ s/ [0-9]+$//' | sort) >"$1/files"
}

install() { # installer, option...
  wine "$1" /S "${@:2}" </dev/null
}

# Uninstalls as the system does, which does not wait for the end.
uninstall() {
  local command
  command=$(value "$entry" QuietUninstallString)
  [[ $command =~ ^\"(.*\\uninstall\.exe)\"\ /S$ ]] || fail "wrong command in the registry: $command"
  wine "${BASH_REMATCH[1]}" /S </dev/null
  await "the end of the uninstallation" has_no_entry
}

has_no_entry() {
  ! wine reg query "$entry" >/dev/null 2>&1 </dev/null
}

check_installed() { # folder, file that is also there...
  must_equal "the files in ${1#"$WINEPREFIX/"}" \
    "$(printf "Only in $1: %s\n" "${@:2}" uninstall.exe)" "$(diff -rq "$unpacked" "$1")"
}

check_resources() { # program, description
  local resources text
  resources=$(x86_64-w64-mingw32-windres -J coff -O rc "$folder/$1.exe")
  for text in '>UTF-8</activeCodePage>' '>true</longPathAware>' '>PerMonitorV2</dpiAwareness>' \
    "\"FileVersion\", \"$version\"" "\"FileDescription\", \"$2\""; do
    [[ $resources == *"$text"* ]] || fail "$1.exe has no $text"
  done
  echo "as expected: manifest and version of $1.exe"
}

check_kinds() {
  local shown offered
  shown=$(sed -n 's/.*a docx file (\(.*\))".*/\1/p' "$root/src/ui/files_and_options.cpp")
  offered=$(registry "$classes" | awk -v value="\"$document\"=" '
    /^\[/ { key = $0 }
    index($0, value) { split(key, parts, "\\"); print "*" parts[4] }')
  must_equal "the kinds of documents, as in the window's file dialog" \
    "$(tr ' ' '\n' <<<"$shown" | sort)" "$(sort <<<"$offered")"
}

# Wine looks for programs only in the part of the registry that all users share.
open_with() { # document
  wine reg copy "$classes\\$document" "${classes/HKCU/HKLM}\\$document" /s /f >/dev/null </dev/null
  wine start /wait /ProgIDOpen "$document" "$1" >/dev/null 2>&1 </dev/null &
  program=$!
}

check_command_line() { # document
  wine "$folder/quorvel-cli.exe" -q "$1" </dev/null
}

# Neither the programs nor the registry may change while the window is open.
check_refusals() {
  local status=0
  snapshot open
  install "$installer" || status=$?
  must_equal "the status of an installation over a program that is running" 2 "$status"
  status=0
  wine "$folder/uninstall.exe" /S "_?=$(value "$entry" InstallLocation)" </dev/null || status=$?
  must_equal "the status of its uninstallation" 2 "$status"
  snapshot still_open
  must_equal "what is installed" "$(cat open/*)" "$(cat still_open/*)"
}

cd "$desk"
cmake -E tar xf "$zip"
unpacked=$(echo "$desk"/quorvel-*)
version=$(sed -E 's/.*quorvel-(.*)-windows\.zip/\1/' <<<"$zip")
user=$(id -un)
home=$WINEPREFIX/drive_c/users/$user
menu="$home/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
sample=$root/data/sample/the-lamp-at-harbour-end.txt
name=$'r\u00e9cit 1'
# A folder whose path has more than 300 characters.
deep=users/$user$(printf '/\u043c\u0430\u044f\u043a-%045d' {1..6})
mkdir -p "$WINEPREFIX/drive_c/$deep"
cp "$sample" "$home/$name.txt"
cp "$sample" "$WINEPREFIX/drive_c/$deep/$name.txt"
"$linux/quorvel-cli" -q -o here.txt "$sample"
# Another program that opens texts.
wine reg add "$classes\\.txt\\OpenWithProgids" /v Other.Document /f >/dev/null </dev/null
python3 -c 'import sys, xml.dom.minidom as xml; xml.parse(sys.argv[1])' "$root/packaging/quorvel.manifest"

echo "Installation for one user"
folder=$home/AppData/Local/Programs/Quorvel
snapshot before
install "$installer"
check_installed "$folder"
must_equal "the version under Apps" "$version" "$(value "$entry" DisplayVersion)"
check_resources quorvel Quorvel
check_resources quorvel-cli "Quorvel command line"
check_kinds

open_with "C:\\users\\$user\\$name.txt"
await_session
list_words "$home/$name.qvl.conc.txt"
same "concordance of a document from \"Open with\"" here.txt "$home/$name.qvl.conc.txt"
press_until alt+v test -s "$home/AppData/Roaming/Quorvel/qvl.usr"
quit_window "$program"
wine reg delete "${classes/HKCU/HKLM}\\$document" /f >/dev/null </dev/null

check_command_line "C:\\${deep//\//\\}\\$name.txt"
same "concordance of the command line, long path" here.txt "$WINEPREFIX/drive_c/$deep/$name.qvl.conc.txt"

wine start /wait "$(winepath -w "$menu/Quorvel.lnk")" >/dev/null 2>&1 </dev/null &
program=$!
await_session
check_refusals
quit_window "$program"

uninstall
snapshot after
must_equal "the registry after the uninstallation" "$(cat before/registry)" "$(cat after/registry)"
must_equal "the new files after it" "$(
  cd "$WINEPREFIX/drive_c"
  find {"$deep/$name","users/$user/$name"}.qvl.conc.txt "users/$user/AppData/Roaming/Quorvel" \
    -printf '%y %p\n' | sort
)" "$(comm -13 before/files after/files | sed -E '/^f/ s/ [0-9]+$//')"
must_equal "the files that were removed by it" "" "$(comm -23 before/files after/files)"

echo "Installation over an older version"
folder=$WINEPREFIX/drive_c/$'B\u00fccher und Texte'
mkdir "$folder"
echo 'Not a part of the program.' >"$folder/notes.txt"
cp -r "$unpacked" older
mkdir older/old
touch older/{,old/}only_in_the_older_version.txt
"$root/packaging/make_installer.sh" older older-setup.exe
rm -r older
snapshot before_older
install older-setup.exe $'/D=C:\\B\u00fccher' und Texte # the installer wants no quotes around it
[[ -f $folder/old/only_in_the_older_version.txt ]] || fail "the older version is not in $folder"
install "$installer"
check_installed "$folder" notes.txt
uninstall
snapshot after_newer
must_equal "the registry and the files after the uninstallation" "$(cat before_older/*)" \
  "$(cat after_newer/*)"
