#!/usr/bin/env bash
# Tests the Windows version of the window, as users get it, under Wine:
#
#   with_x_server.sh try_window.sh ZIP LINUX-BUILD-FOLDER PICTURE
#
# The zip is unpacked in a new folder, and the words of the sample are listed with the keyboard. The
# concordance must equal that of the Linux program byte for byte, except for the lines with the file
# and the time. The settings must be restored in a second session. The picture shows the window with
# the listing.
set -euo pipefail

zip=$(realpath "$1")
linux=$(realpath "$2")
picture=$(realpath "$3")
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/windows/wine.bash
. "$root/tools/windows/wine.bash"
# shellcheck source=tools/windows/window.bash
. "$root/tools/windows/window.bash"
start_wine "$desk/wine"

start_window() { # argument...
  wine "$folder/quorvel.exe" "$@" >/dev/null 2>&1 </dev/null &
  program=$!
}

cd "$desk"
cmake -E tar xf "$zip"
folder=$(echo "$desk"/quorvel-*)
user=$(id -un)
home=$WINEPREFIX/drive_c/users/$user
name=$'r\u00e9cit 1'
sample=$root/data/sample/the-lamp-at-harbour-end.txt
cp "$sample" "$home/$name.txt"
concordance=$home/$name.qvl.conc.txt
state=$home/AppData/Roaming/Quorvel/qvl.usr

start_window "C:/users/$user/$name.txt" # in the form that the file dialog returns
await_session
list_words "$concordance"
"$linux/quorvel-cli" -q -o here.txt "$sample"
same "concordance that F5 wrote in the window" here.txt "$concordance"
[[ $(head -n 1 "$concordance" | iconv -f WINDOWS-1252) == "Input file: C:\\users\\$user\\$name.txt"$'\r' ]] ||
  fail "the concordance names its input '$(head -n 1 "$concordance")'"
wine "$folder/quorvel-cli.exe" -q -o out "$sample" </dev/null
same "concordance of the command line" here.txt out
import -window root "$picture"
echo "Its picture: $picture"

press_until alt+v test -s "$state"
quit_window "$program"
rm "$concordance"
start_window # the input comes from the settings
await_session
list_words "$concordance"
same "concordance of a second session, with the settings kept in AppData" here.txt "$concordance"
quit_window "$program"
