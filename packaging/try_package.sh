#!/usr/bin/env bash
# Installs a package of Quorvel in a fresh Debian 12 and uses it there as an ordinary user:
#
#   try_package.sh PACKAGE [SYSTEM]
#
# The system is made by debootstrap, from the mirror in DEBIAN_MIRROR if that is set, or copied
# from the folder SYSTEM. Only the package and its dependencies are installed in it. The X server
# and xdotool run outside. Fails if the programs do not work there or write outside the user's
# folders. Needs root.
set -euo pipefail

package=$(realpath "$1")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tools/press_until.bash
. "$here/../tools/press_until.bash"

fail() {
  echo "try_package: $*" >&2
  exit 1
}

in_system() {
  chroot "$system" "$@"
}

as_reader() {
  chroot --userspec=reader:reader "$system" \
    env -i HOME=/home/reader XDG_RUNTIME_DIR=/run/user/reader PATH=/usr/bin:/bin \
    LC_ALL=C.UTF-8 DISPLAY="$DISPLAY" "$@"
}

make_system() { # bare system to copy, or nothing
  if [[ -n $1 ]]; then
    cp -ax "$1/." "$system"
  else
    debootstrap --variant=minbase bookworm "$system" ${DEBIAN_MIRROR:+"$DEBIAN_MIRROR"} \
      >"$system.log" || fail "debootstrap failed: $(tail -n 1 "$system.log")"
  fi
}

install_package() {
  local before
  before=$(in_system dpkg-query -W | wc -l)
  cp "$package" "$system/quorvel.deb"
  in_system apt-get update -q >"$system.log"
  in_system env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends /quorvel.deb >>"$system.log" 2>&1 ||
    fail "cannot be installed: $(grep -v '^$' "$system.log" | tail -n 5)"
  rm "$system/quorvel.deb"
  echo "Installed: $(in_system dpkg-query -W quorvel | tr '\t' ' ')," \
    "with $(($(in_system dpkg-query -W | wc -l) - before - 1)) packages that it needs"
}

# Sets up a user with a session, and a time stamp: files changed later were written by the programs.
set_stage() {
  in_system useradd -m reader
  in_system install -d -m 700 -o reader -g reader /run/user/reader /srv/lists
  printf '%s\r\n' 'Der Hafen war still, und die Lampe war aus.' \
    'Die Frau ging in den Hafen, und dann ging auch die Lampe aus.' >"$system/home/reader/hafen.txt"
  in_system chown reader:reader /home/reader/hafen.txt
  touch "$system/stamp"
}

try_command_line() {
  echo "$ quorvel-cli --version: $(as_reader quorvel-cli --version)"
  as_reader quorvel-cli -o /srv/lists/hafen.txt /home/reader/hafen.txt
  local words list
  words=$(as_reader quorvel-cli -q -c 0 -o - /home/reader/hafen.txt | sed '1,4 d; /^$/ d')
  list=$(tr '\n' ' ' <<<"$words")
  echo "$ quorvel-cli -c 0 -o - hafen.txt: $list"
  grep -q '^Hafen' <<<"$words" || fail "Hafen is not listed"
  ! grep -q -i -E '^(und|die|der)\b' <<<"$words" || fail "German stop words are listed"
  as_reader quorvel-cli -q -c 0 --language none -o - /home/reader/hafen.txt | grep -q -i '^und' ||
    fail "without stop words 'und' is not listed"
  words=$(as_reader quorvel-cli -q -c 0 --encoding unicode --format tsv - <<<'Там маяк, море и маяк.')
  list=$(cut -f 1,3 <<<"$words" | tr '\t\n' ': ')
  echo "$ quorvel-cli --encoding unicode -c 0 --format tsv -: $list"
  [[ $list == *маяк:2* ]] || fail "a Cyrillic word is not listed as it should be"
}

# Waits for a window, gives it the keyboard focus and prints its id.
find_window() { # title
  local tries found
  for ((tries = 0; tries < 100; ++tries)); do
    if found=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null) && [[ -n $found ]]; then
      xdotool windowactivate --sync "$found"
      echo "$found"
      return
    fi
    sleep 0.1
  done
  fail "no window '$1' appeared"
}

await_file() {
  local tries
  for ((tries = 0; tries < 100; ++tries)); do
    [[ ! -s $1 ]] || return 0
    sleep 0.1
  done
  fail "the window did not write $1"
}

try_window() {
  local program window icons status=0
  local concordance=$system/home/reader/hafen.qvl.conc.txt
  as_reader quorvel /home/reader/hafen.txt &
  program=$!
  find_window 'Stop words loaded' >/dev/null
  xdotool key Return
  window=$(find_window Quorvel)
  icons=$(xprop -id "$window" _NET_WM_ICON | grep -o 'Icon ([0-9]*' | grep -o '[0-9]*' | tr '\n' ' ')
  echo "$ quorvel hafen.txt: a window of $(xprop -id "$window" WM_CLASS), icons of $icons dots"
  [[ -n $icons ]] || fail "the window has no icon"
  xdotool key F5
  await_file "$concordance"
  # The first lines contain the path and the time.
  diff <(sed '1,3 d' "$concordance") <(sed '1,3 d' "$system/srv/lists/hafen.txt") ||
    fail "window and command line differ"
  echo "F5 wrote the concordance of $(wc -c <"$concordance") bytes that quorvel-cli writes too"
  press_until alt+v test -s "$system/home/reader/.config/Quorvel/qvl.usr"
  press_until ctrl+q has_ended "$program"
  wait "$program" || status=$?
  echo "Ctrl+Q: status $status"
  ((status == 0)) || fail "the window ended with status $status"
}

check_files() {
  local written outside
  written=$(in_system find / -xdev -cnewer /stamp -not -path '/proc*' -not -path '/tmp/.X11-unix*' |
    sort)
  echo "Written: $(grep -v /fontconfig/ <<<"$written" | tr '\n' ' ')"
  outside=$(grep -v -E '^/(home/reader(/.*)?|srv/lists(/hafen\.txt)?)$' <<<"$written" || true)
  [[ -z $outside ]] || fail "written outside the user's folders: $outside"
  outside=$(find "$system/tmp" -xdev -mindepth 1 -not -path '*/.X11-unix*')
  [[ -z $outside ]] || fail "left behind: $outside"
}

check_removal() {
  local files left
  files=$(in_system dpkg -L quorvel)
  in_system apt-get purge -q -y quorvel >>"$system.log" 2>&1
  left=$(while read -r file; do
    [[ -d $system$file || ! -e $system$file ]] || echo "$file"
  done <<<"$files")
  [[ -z $left ]] || fail "left behind by its removal: $left"
  echo "Purged: of its $(wc -l <<<"$files") files and folders no file is left"
}

# Runs in its own mount namespace. The programs need /proc to find their folder, and the socket of
# the X server.
inside() {
  mount -t proc proc "$system/proc"
  mkdir -p "$system/tmp/.X11-unix"
  mount --bind /tmp/.X11-unix "$system/tmp/.X11-unix"
  install_package
  set_stage
  try_command_line
  try_window
  check_files
  check_removal
}

if [[ ${2:-} == --inside ]]; then
  system=$3
  inside
else
  ((EUID == 0)) || fail "only root may make a system and change into it"
  system=$(mktemp -d)
  trap 'rm -rf --one-file-system "$system" "$system.log"' EXIT
  chmod 755 "$system"
  make_system "${2:-}"
  "$here/../tools/with_x_server.sh" \
    unshare --mount -- "$here/try_package.sh" "$package" --inside "$system"
fi
