# Sourced by ./run and ./test: installs what is missing, on Debian 12, as root or with sudo.

say() { printf '%s\n' "$*"; }

# install_packages KIND...: the packages that packages.txt lists for these kinds.
install_packages() {
  local missing=() name kind wanted
  command -v dpkg-query >/dev/null || { say "This is not a Debian system: install the packages of packages.txt by hand, then run again."; return 0; }
  while read -r name kind _; do
    case "$name" in ''|'#'*) continue;; esac
    for wanted in "$@"; do
      if [ "$kind" = "$wanted" ] && [ "$(dpkg-query -W -f '${db:Status-Abbrev}' "$name" 2>/dev/null)" != "ii " ]; then
        missing+=("$name")
      fi
    done
  done < packages.txt
  [ ${#missing[@]} -eq 0 ] && return 0
  say "Installing: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || { say "Installing needs root or sudo. As root run: apt-get install ${missing[*]}"; return 1; }
    as_root=(sudo)
  fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=500 update -q </dev/null >/dev/null || true
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=500 install -y -q \
    --no-install-recommends "${missing[@]}" </dev/null >/dev/null
}

# build PRESET: configures and builds it.
build() {
  cmake --preset "$1" >"build-$1.log" 2>&1 || { cat "build-$1.log"; rm -f "build-$1.log"; return 1; }
  rm -f "build-$1.log"
  cmake --build --preset "$1"
}

# in_wine PREFIX COMMAND...: runs it with this prefix and no questions, for five minutes at most.
in_wine() {
  local prefix=$1
  shift
  env WINEPREFIX="$(realpath -m "$prefix")" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" LC_ALL=C.UTF-8 \
    timeout 300 "$@" </dev/null >/dev/null 2>&1
}

# start_wine PREFIX: makes the prefix if need be and starts what stays in the background. Later that would
# hold the pipe of whoever started it, and nobody would see its end.
start_wine() {
  mkdir -p "$1"
  if [ ! -e "$1/system.reg" ]; then
    say "Setting up Wine ..."
    in_wine "$1" wine wineboot -i || { say "Wine does not start."; return 1; }
    in_wine "$1" wineserver -w || true
  fi
  in_wine "$1" wineserver -p || true
  in_wine "$1" wine cmd /c exit || { say "Wine does not start."; return 1; }
  rm -f "$1"/dosdevices/com*  # tests reach no real device
}

# tell_skipped LOG: the tests that CTest's log says were skipped, each with its reason.
tell_skipped() {
  [ -f "$1" ] || return 0
  awk '/^[0-9]+\/[0-9]+ Testing: / { name = $3 }
    reason { print "Skipped " name ": " $0; reason = 0 }
    /: Skipped$/ { reason = 1 }
    /^Skipped: / { print "Skipped " name ": " substr($0, 10) }' "$1" | tr -d '\r' | sort
}

stop_wine() {
  in_wine "$1" wineserver -k || true
}
