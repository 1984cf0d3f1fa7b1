#!/usr/bin/env bash
# Runs a command on an X server and a window manager of its own, and ends with its status.
#
#   with_x_server.sh COMMAND [ARGUMENT...]
#
# Without a window manager no window ever becomes active, and keys reach none.
set -euo pipefail

manager=
server=
# shellcheck disable=SC2086
trap 'kill $manager $server 2>/dev/null || true; wait' EXIT

# The server picks a free display, and says which once it takes connections.
exec {answer}< <(exec Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp 2>/dev/null)
server=$!
read -r display <&"$answer" || {
  echo "Xvfb did not start" >&2
  exit 1
}
export DISPLAY=:$display

openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml >/dev/null 2>&1 &
manager=$!
for ((i = 0; ; ++i)); do
  [[ $(xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null) != *'window id'* ]] || break
  ((i < 1200)) || {
    echo "openbox did not start" >&2
    exit 1
  }
  sleep 0.05
done

# What the user has set for other programs is left outside.
unset QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR XMODIFIERS
export LC_ALL=C.UTF-8 QT_IM_MODULE=none
"$@"
