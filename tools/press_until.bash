# Shared functions of the scripts that drive the window. The sourcing script must define `fail`.

# A message that closes by itself may receive keys for a while, so the key is repeated.
press_until() { # key, command that succeeds when it has worked
  local tries
  for ((tries = 0; tries < 40; ++tries)); do
    xdotool key "$1"
    sleep 0.5
    ! "${@:2}" || return 0
  done
  fail "$1 did nothing"
}

has_ended() { # process
  ! kill -0 "$1" 2>/dev/null
}
