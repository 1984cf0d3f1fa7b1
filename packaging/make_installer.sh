#!/usr/bin/env bash
# Makes the installer for Windows:
#
#   make_installer.sh FOLDER INSTALLER
#
# FOLDER holds what is installed: the programs, their data and the licences, as in the zip. The
# uninstaller deletes exactly these files, so that files of the user in the same folder stay.
set -euo pipefail

folder=$(realpath "$1")
installer=$(realpath "$2")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
removal=$(mktemp)
trap 'rm -f "$removal"' EXIT

# Prints an NSIS command for each file or folder that find shows; find writes paths with "/".
commands() { # command, argument of find...
  find "$folder" -mindepth 1 "${@:2}" -printf "$1 \"\$INSTDIR/%P\"\n" | sed 's,/,\\,g'
}

{
  commands Delete -type f
  commands RMDir -depth -type d
} >"$removal"
makensis -V2 -WX -INPUTCHARSET UTF8 -DFOLDER="$folder" -DREMOVAL="$removal" -DINSTALLER="$installer" \
  -DICON="$here/../data/icons/quorvel.ico" "$here/quorvel.nsi"
