#!/usr/bin/env bash
# Runs a command with its own X server and window manager. The exit status is that of the command.
#
#   with_x_server.sh COMMAND [ARGUMENT...]
#
# The window manager is needed because without one no window becomes active or receives keys.
set -euo pipefail

manager=
server=
# shellcheck disable=SC2086
trap 'kill $manager $server 2>/dev/null || true; wait' EXIT

# The server picks a free display and reports it when it accepts connections.
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

# The user's settings for other programs must not affect the command.
unset QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR XMODIFIERS
export LC_ALL=C.UTF-8 QT_IM_MODULE=none
"$@"
