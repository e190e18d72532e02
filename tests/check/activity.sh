#!/usr/bin/env bash
# activity.sh PROGRAM SAMPLE: the commands about activity files, without display and plug-in.
set -euo pipefail

program=$1
sample=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
cp "$sample"/{sample.fpgaproj,sample.vlr,netlist.json,activity.vcd} .

# status EXPECTED COMMAND ARGUMENTS...: leaves what was printed in `out`.
status() {
    local expected=$1 got=0
    shift
    "$program" "$@" >out 2>err || got=$?
    [ "$got" -eq "$expected" ] || { echo "$*: $got instead of $expected"; cat out err; exit 1; }
}

# Scopes
status 0 scopes activity.vcd
grep -qx '  sample_tb/dut -> (design): sources 241 of 241 (100 %), logic 35 of 206 (17 %).*' out
sed 's/ control / kontrol /; s/module u_/module v_/' activity.vcd >other.vcd
status 1 scopes activity.vcd other.vcd
grep -q '^other.vcd: .*: fits in part$' out
gzip -k activity.vcd
status 3 scopes activity.vcd.gz
grep -qx 'activity.vcd.gz: it is a gzip archive' out
status 3 scopes none.vcd
status 2 scopes
status 2 scopes --format xml activity.vcd
status 2 scopes --max 0 activity.vcd
mkdir alone
cp activity.vcd alone
status 3 scopes alone/activity.vcd
grep -q 'there is no netlist' err
status 0 scopes --netlist netlist.json --format json --max 1 alone/activity.vcd
python3 - <<'PY'
import json
report = json.load(open("out"))
(file,) = report["files"]
(best,) = file["candidates"]
assert report["format"] == 1
assert file["kind"] == "vcd" and file["timescale"] == "1 ps" and file["verdict"] == "fits", file
assert file["span"][0] == 0 and file["span"][1] > 10**7, file
assert best["scope"] == "sample_tb/dut" and best["instance"] == "", best
kinds = best["byKind"]
assert list(sorted(kinds)) == ["flip-flop", "input", "logic", "memory", "pad", "undriven"], kinds
assert best["covered"] == sum(c for c, n in kinds.values()), best
assert best["nets"] == sum(n for c, n in kinds.values()), best
assert sum(best["variables"]) == 185, best
PY
"$program" --help | grep -q '^  scopes '
