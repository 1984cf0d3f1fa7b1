# Shared by the scripts that drive the window under Wine. It is sourced after wine.bash, not executed.
# The sourcing script must set `picture`, the file for a screenshot, and `root`, the source tree.
# shellcheck disable=SC2154

# shellcheck source=tools/press_until.bash
. "$root/tools/press_until.bash"

fail() {
  import -window root "$picture"
  echo "$(basename "$0" .sh): $*; see $picture" >&2
  exit 1
}

await() { # what, command that succeeds when it is there
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    ! "${@:2}" || return 0
    sleep 0.1
  done
  fail "not seen: $1"
}

window() { # title
  xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1
}

activate() { # title
  await "window '$1'" window "$1"
  xdotool search --onlyvisible --name "^$1\$" windowactivate --sync
}

# Waits for the window of a new session, which has opened a document.
await_session() {
  activate 'Stop words loaded'
  xdotool key Return
  activate Quorvel
}

list_words() { # concordance
  xdotool key F5
  await "$1" test -s "$1"
}

quit_window() { # its process
  press_until ctrl+q has_ended "$1"
  wait "$1" || fail "the window ended with status $?"
}
