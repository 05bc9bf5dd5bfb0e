#!/usr/bin/env bash
# The program for Windows on a COM port: the port is a pseudo-terminal, with the simulated indicator of a
# native build at its other end. Files have names with blanks, umlauts and other scripts.
#   com_port.sh CALYX-CLI.EXE NATIVE-CALYX-CLI DATA-FOLDER      WINEPREFIX names the prefix to use
set -euo pipefail
exe=$1 native=$2 data=$3
[ -x "$native" ] || { echo "Skipped: no native calyx-cli to simulate the indicator (preset cli builds it)."; exit 77; }
[ -d "${WINEPREFIX:-}/dosdevices" ] || { echo "Skipped: no Wine prefix that ./test --windows has set up."; exit 77; }

folder=$(mktemp -d)
simulator=
stop() {
  [ -z "$simulator" ] || kill "$simulator" 2>/dev/null || true
  wait 2>/dev/null || true
  simulator=
}
trap 'stop; rm -rf "$folder" "$WINEPREFIX/dosdevices/com5"' EXIT

calyx() { timeout 120 wine "$exe" --data-dir "Z:$data" --user-dir "Z:$folder/user" "$@"; }
# simulate SETTINGS: an indicator that answers at these, behind COM5.
simulate() {
  stop
  "$native" --data-dir "$data" --user-dir "$folder/native" simulate --pty --settings "$1" >"$folder/simulator.txt" &
  simulator=$!
  for _ in $(seq 200); do grep -q listening "$folder/simulator.txt" && break; sleep 0.05; done
  ln -sfn "$(sed -n 's/^listening on //p' "$folder/simulator.txt")" "$WINEPREFIX/dosdevices/com5"
}
fail() { echo "FAILED: $*"; exit 1; }
# again COMMAND...: a busy machine may leave an answer out for longer than the link waits.
again() {
  local left
  for left in 1 2 3 4 5; do "$@" && return 0; done
  fail "$*"
}
is() { [ "$1" = "$2" ] || fail "$3: '$1' instead of '$2'"; }

file="$folder/Prüfstand Łódź 重量.mrn"
calyx new "Z:$file"
[ -f "$file" ] || fail "the file has another name: $(ls "$folder")"
calyx set "Z:$file" UID=GATE-7 TRUCK=MODE1
calyx text "Z:$file" >"$folder/text.txt"
if grep -q $'\r' "$folder/text.txt"; then fail "the output has carriage returns"; fi
grep -qx UID=GATE-7 "$folder/text.txt" || fail "the change is not in the file"

simulate 57600,N,8,1
link=(--serial COM5 --settings 57600,N,8,1 --delay-ms 500)
again calyx connect "${link[@]}"
again calyx download "Z:$file" "${link[@]}"
again calyx compare "Z:$file" "${link[@]}"
again calyx upload "Z:$folder/zurück.mrn" "${link[@]}"
is "$(calyx get --skip-checks "Z:$folder/zurück.mrn" UID)" GATE-7 "what came back"

# Rate and parity are found; what was found is kept in the settings.
for settings in 19200,N,8,1 9600,O,7,1; do
  simulate "$settings"
  found=
  for _ in 1 2 3 4 5; do
    found=$(calyx connect --auto --serial COM5 | sed -n 's/^link *//p') && break
  done
  is "$found" "COM5:$settings" "detection"
done
if calyx connect --serial COM5 --settings 9600,E,7,1; then fail "the wrong parity was understood"; fi

# A port that has gone, and one that never was.
stop
for port in COM5 COM77; do
  code=0
  said=$(calyx connect --serial $port --settings 9600,N,8,1 2>&1) || code=$?
  is $code 3 "the exit code for $port"
  grep -q "error 12801 .*$port" <<<"$said" || fail "$port: $said"
done
echo "The COM port carried everything."
