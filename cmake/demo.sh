#!/usr/bin/env bash
# The main job without a window: a sample is opened and checked, sent to a simulated indicator, read
# back and compared.   demo.sh CALYX-CLI
set -euo pipefail
cli=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=$(mktemp -d)
simulator=
trap '[ -z "$simulator" ] || kill -INT "$simulator" 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$folder"' EXIT
calyx() { "$cli" --data-dir data --user-dir "$folder/user" "$@"; }
step() { printf '\n== %s\n' "$*"; }

echo "No display here, so Calyx shows its main job on the command line."
sample=data/samples/truck-scale.mrn

step "Open the hand-written sample $sample, check it, and save it as a configuration file"
calyx check "$sample" --skip-checks || [ $? = 1 ]
calyx set "$sample" UID=GATE-N --skip-checks --output "$folder/gate.mrn"
calyx check "$folder/gate.mrn"

step "Start a simulated indicator"
"$cli" --data-dir data --user-dir "$folder/user" simulate --tcp 0 >"$folder/simulator.txt" &
simulator=$!
for _ in $(seq 100); do grep -q listening "$folder/simulator.txt" && break; sleep 0.05; done
address=$(sed -n 's/^listening on //p' "$folder/simulator.txt")
calyx connect --tcp "$address"

step "Send the configuration, calibration included"
calyx download "$folder/gate.mrn" --tcp "$address" --only base,calibration,setpoints,widgets

step "Read it back and compare"
calyx upload "$folder/back.mrn" --tcp "$address"
calyx compare "$folder/gate.mrn" --tcp "$address" && echo "The indicator holds what the file says."

step "Summary"
printf '%s lines in the file, %s lines in the indicator, no differences in what was sent.\n' \
  "$(calyx text "$folder/gate.mrn" | wc -l)" "$(grep -c = "$folder/back.mrn")"
