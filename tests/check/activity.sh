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

# Coverage: one record for the design in a window of time, and one that a rate overlaps.
python3 - <<'PY'
text = open("sample.vlr").read()
files = """<SimuFile>
<File type="vcd" name="activity.vcd" entity="" start_time="1" end_time="10" time_unit="us"/>
<File type="vcd" name="activity.vcd" entity="u_uart"/>
</SimuFile>
"""
open("covered.vlr", "w").write(text.replace("<GlobalEnable", files + "<GlobalEnable", 1))
open("broken.vlr", "w").write(
    text.replace("<GlobalEnable", files.replace("activity.vcd", "none.vcd") + "<GlobalEnable", 1))
PY
status 0 coverage sample.vlr
grep -q '^sample.vlr: 489 nets: sources 1 of 241 (0 %), logic 2 of 206 (1 %)$' out
status 0 coverage --format csv --depth 0 covered.vlr
[ "$(wc -l <out)" -eq 2 ]
status 3 coverage broken.vlr
grep -q 'none.vcd: the file does not exist' err
status 3 coverage none.vlr
status 2 coverage
status 2 coverage --depth x covered.vlr
status 2 coverage --activity all covered.vlr
for level in header full; do
    status 0 coverage --format json --activity $level --uncovered names covered.vlr
    python3 - $level <<'PY'
import json, sys
report = json.load(open("out"))
assert report["format"] == 1 and report["nets"] == 489
assert sum(report["sources"].values()) == 489, report["sources"]
assert report["sources"]["rate"] == 3 and report["sources"]["file"] > 300
assert report["clocks"] == 2 and report["overlaps"] > 34, report["overlaps"]
names = open("names").read().split()
assert len(set(names)) == report["sources"]["default-io"] + report["sources"]["default-rest"]
instances = {i["path"]: i for i in report["instances"]}
assert instances[""]["byKind"] == report["byKind"] and "u_uart/u_rx" in instances
assert sum(i["own"]["nets"] for i in instances.values()) == 489
for instance in instances.values():
    assert sum(instance["sources"].values()) == instance["nets"], instance
    kinds = instance["byKind"].values()
    assert [sum(k) for k in zip(*kinds)] == [instance["covered"], instance["nets"]], instance
first, second = report["files"]
assert first["scope"] == "sample_tb/dut" and second["scope"] == "sample_tb/dut/u_uart"
assert second["nets"] == 0
if sys.argv[1] == "full":
    assert first["duration"] == 9_000_000, first["duration"]
    assert "address[9]" in first["static"]
    # The bench sends one command after the other: the line toggles in both halves.
    assert instances[""]["toggles"] > instances["u_uart"]["toggles"] > 100
PY
done
