# Shared by the scripts that try programs for Windows: starts Wine, and compares what is written there
# with what is written here. To be sourced.

desk=$(mktemp -d) # goes with the script

end_wine() {
  wineserver -k || true
  rm -rf "$desk"
}

# Left alone, the server of Wine ends some seconds after each program, and holds our output till then.
start_wine() { # folder for its drive; it touches nothing else
  export WINEPREFIX=$1 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
  trap end_wine EXIT
  mkdir -p "$WINEPREFIX"
  wineserver -p >/dev/null 2>&1 </dev/null
  wine wineboot --init >/dev/null 2>&1 </dev/null
}

# What must be the same: all but the lines that name the file and the time.
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
