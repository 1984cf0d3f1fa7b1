#!/usr/bin/env bash
# Takes screenshots of all windows, light and dark, for the documentation:
#
#   screenshots.sh BUILD-FOLDER TARGET-FOLDER
set -euo pipefail

build=$(realpath "$1")
mkdir -p "$2"
target=$(realpath "$2")
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# The screenshots show paths in this folder, which must be the same on every machine.
stage=/tmp/quorvel

mkdir "$stage"
trap 'rm -rf "$stage"' EXIT
cp "$build/quorvel_screenshots" "$root"/data/*.txt "$stage"
cd "$stage"

# The colours of a dark desktop theme.
dark_colors() {
  cat <<'END'
[KDE]
ShowIconsOnPushButtons=false
[Colors:Window]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Button]
BackgroundNormal=60,66,72
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundLink=29,153,243
ForegroundVisited=155,89,182
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
END
}

for theme in light dark; do
  # Each theme starts with only the document.
  rm -rf config ./*.qvl.* lights.txt
  mkdir -m 700 config
  cp "$root/data/sample/the-lamp-at-harbour-end.txt" .
  desktop=()
  if [[ $theme == dark ]]; then
    dark_colors >config/kdeglobals
    # Theme changes would be announced on a session bus, which does not exist here.
    desktop=(XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5 QT_LOGGING_RULES=qt.qpa.theme.dbus=false)
  fi
  env -u XDG_CURRENT_DESKTOP XDG_CONFIG_HOME="$stage/config" XDG_RUNTIME_DIR="$stage/config" \
    "${desktop[@]}" \
    "$root/tools/with_x_server.sh" \
    ./quorvel_screenshots the-lamp-at-harbour-end.txt "$target" "$theme"
done

pngquant --force --strip --speed 1 --ext .png "$target"/*.png
echo "Pictures in $target:"
ls "$target"
