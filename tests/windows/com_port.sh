#!/usr/bin/env bash
# The program for Windows on a COM port: the port is a pseudo-terminal, with the simulated indicator of a
# native build at its other end. Files have names with blanks, umlauts and other scripts.
#   com_port.sh CALYX-CLI.EXE NATIVE-CALYX-CLI DATA-FOLDER      WINEPREFIX names the prefix to use
set -euo pipefail
exe=$1 native=$2 data=$3
[ -x "$native" ] || { echo "Skipped: no native calyx-cli to simulate the indicator (preset cli builds it)."; exit 77; }
[ -d "${WINEPREFIX:-}/dosdevices" ] || { echo "Skipped: no Wine prefix that ./test --windows has set up."; exit 77; }

folder=$(mktemp -d)
simulator= download=
# By Ctrl+C, so that it keeps what it holds.
stop() {
  [ -z "$simulator" ] || { kill -INT "$simulator" && wait "$simulator"; } 2>/dev/null || true
  simulator=
}
trap 'stop; [ -z "$download" ] || kill -9 $download 2>/dev/null || true; rm -rf "$folder" "$WINEPREFIX/dosdevices/com5"' EXIT

ln -s "$data" "$folder/Daten für Prüfer"
calyx() {
  timeout 120 wine "$exe" --data-dir "Z:$folder/Daten für Prüfer" --user-dir "Z:$folder/Benutzer Jörg" "$@"
}
# simulate SETTINGS ...: an indicator that answers at these, behind COM5.
simulate() {
  stop
  rm -f "$folder/simulator.txt"
  "$native" --data-dir "$data" --user-dir "$folder/native" simulate --pty --settings "$@" >"$folder/simulator.txt" &
  simulator=$!
  for _ in $(seq 200); do grep -qs listening "$folder/simulator.txt" && break; sleep 0.05; done
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
again calyx upload "Z:$folder/zurück.mrn" "${link[@]}" --log "Z:$folder/Protokoll für alle.txt"
grep -q DUMPALL "$folder/Protokoll für alle.txt" || fail "the log is not where it was asked for"
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

# A path beyond the 260 characters of older programs.
long="$folder/$(printf 'Wägezelle %.0s' {1..12})/$(printf 'Prüfstand %.0s' {1..12})x"
mkdir -p "$long"
calyx new "Z:$long/a.mrn"
calyx set "Z:$long/a.mrn" UID=FAR
is "$(calyx get "Z:$long/a.mrn" UID)" FAR "the file with a long path"

# The port goes away in the middle of a download, as an adapter that is pulled out: that is said, what was
# done is kept, and the rest goes on with the port back.
calyx set "Z:$file" SP.KIND#1=GROSS SP.KIND#2=NET >/dev/null
for way in "" --changed; do
  again simulate 57600,N,8,1 --state "$folder/held" --fault drop:40
  code=0
  said=$(calyx download $way "Z:$file" "${link[@]}" 2>&1) || code=$?
  is $code 3 "the exit code of a download whose port has gone"
  grep -q "error 12801" <<<"$said" || fail "a port that has gone: $said"
  grep -q '"resume" goes on' <<<"$said" || fail "what is left is not kept: $said"
  ls "$folder/Benutzer Jörg/send.journal" >/dev/null
  simulate 57600,N,8,1 --state "$folder/held"
  again calyx resume "${link[@]}" >/dev/null
  again calyx compare "Z:$file" "${link[@]}"
  stop
  rm "$folder/held"
done

# Ctrl+C in the middle keeps the position, too. The simulator has slowed down by then.
simulate 57600,N,8,1 --state "$folder/held" --fault late:100@40+
WINEDEBUG=-all wine "$exe" --data-dir "Z:$data" --user-dir "Z:$folder/Benutzer Jörg" download "Z:$file" "${link[@]}" \
  >"$folder/said.txt" 2>&1 </dev/null &
download=$!
journal="$folder/Benutzer Jörg/send.journal"
size() { stat -c %s "$journal" 2>/dev/null || echo 0; }
begun=0
for _ in $(seq 600); do
  [ "$begun" != 0 ] || begun=$(size)
  [ "$(size)" -gt $((begun + 20)) ] && break
  sleep 0.05
done
kill -INT $download
code=0
wait $download || code=$?
download=
is $code 130 "the exit code after Ctrl+C, which said: $(cat "$folder/said.txt")"
grep -q '"resume" goes on' "$folder/said.txt" || fail "Ctrl+C lost the position: $(cat "$folder/said.txt")"
simulate 57600,N,8,1 --state "$folder/held"
again calyx resume "${link[@]}" >/dev/null
again calyx compare "Z:$file" "${link[@]}"

# A port that has gone, and one that never was.
stop
for port in COM5 COM77; do
  code=0
  said=$(calyx connect --serial $port --settings 9600,N,8,1 2>&1) || code=$?
  is $code 3 "the exit code for $port"
  grep -q "error 12801 .*no serial port $port: " <<<"$said" || fail "$port: $said"
  if grep -q '\.\.' <<<"$said"; then fail "two full stops: $said"; fi
done
echo "The COM port carried everything."
