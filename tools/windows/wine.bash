# Shared by the scripts that test Windows programs: starts Wine, and compares the output of Windows
# and Linux programs. It is sourced, not executed.

desk=$(mktemp -d) # removed at the end of the script

end_wine() {
  wineserver -k || true
  rm -rf "$desk"
}

# A Wine server that a program starts itself keeps our output open for a few seconds after the
# program ends. So one is started here that stays until the end.
start_wine() { # folder for its drive; it touches nothing else
  export WINEPREFIX=$1 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
  trap end_wine EXIT
  mkdir -p "$WINEPREFIX"
  wineserver -p >/dev/null 2>&1 </dev/null
  wine wineboot --init >/dev/null 2>&1 </dev/null
}

# The part of a file that must be the same: all lines except those with the file and the time.
body() { # file
  grep -av -e '^Input file: ' -e '^Concordance file created ' "$1"
}

same() { # what, file, file
  cmp <(body "$2") <(body "$3") || {
    echo "$1: not what this system makes" >&2
    exit 1
  }
  echo "the same: $1, $(wc -c <"$2") bytes"
}
