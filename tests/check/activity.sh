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

# Scopes that the project keeps are used and left alone.
cp sample.fpgaproj before.json
sed '1s/{/{"activityScopes": {"activity.vcd": {"u_uart": "sample_tb"}}, "own": [1],/' before.json \
    >sample.fpgaproj
cp sample.fpgaproj with.json
status 0 coverage --format json covered.vlr
cmp sample.fpgaproj with.json
grep -q '"scope": "sample_tb/dut/u_uart"' out
cp before.json sample.fpgaproj

# Progress where standard error is a terminal; an interrupt ends the counting and leaves no file.
python3 - "$program" <<'PY'
import os, pty, signal, subprocess, sys
with open("long.vcd", "wb") as file:
    head = open("activity.vcd", "rb").read()
    file.write(head)
    last = int(head.rsplit(b"#", 1)[1].split()[0])
    for start in range(0, 4000000, 100000):
        file.write(b"".join(b"#%d\n0!\n1!\n" % (last + n) for n in range(start, start + 100000)))
text = open("covered.vlr").read().replace("activity.vcd", "long.vcd").replace('end_time="10"', "")
open("long.vlr", "w").write(text)
before = set(os.listdir("."))
terminal, side = pty.openpty()
process = subprocess.Popen([sys.argv[1], "coverage", "--activity", "full", "--uncovered", "late",
                            "long.vlr"], stderr=side, stdout=subprocess.PIPE)
os.close(side)
shown = b""
while b"Counting toggles: 1 %" not in shown:
    shown += os.read(terminal, 1000)
process.send_signal(signal.SIGINT)
printed, _ = process.communicate(timeout=20)
try:
    shown = os.read(terminal, 100000)
except OSError:
    shown = b""
assert shown.endswith(b"\r\033[K"), shown  # the line is taken away: it ended by itself
assert process.returncode == 130 and printed == b"", (process.returncode, printed)
assert set(os.listdir(".")) == before, set(os.listdir(".")) - before
os.remove("long.vcd")
PY

# Check
status 1 check --activity none broken.vlr
status 0 check --activity none covered.vlr
status 0 check covered.vlr
grep -q '\[overlap\]$' out
! grep -q '\[static\]$' out
status 0 check --activity full covered.vlr
grep -q 'address\[9\].* \[static\]$' out
status 0 check --min-coverage flip-flop=100 --min-coverage logic=16 covered.vlr
status 1 check --min-coverage logic=17 covered.vlr
grep -q '^covered.vlr: error: .* \[coverage-low\]$' out
status 2 check --min-coverage logic covered.vlr
status 2 check --min-coverage all=1 covered.vlr
status 2 check --activity all covered.vlr

# Export
status 0 export covered.vlr --to csv -o out.csv
status 0 export covered.vlr --to sta -o out.tcl
grep -q 'read_vcd -scope {sample_tb/dut} {activity.vcd}' out.tcl
python3 - <<'PY'
import csv
rows = {row["path"]: row for row in csv.DictReader(open("out.csv", newline=""))}
assert len(rows) == 489
# 50 MHz in the bench, in a window that begins and ends with an edge.
assert rows["clk_sys"] == {"path": "clk_sys", "kind": "input", "source": "file",
                           "value": "1e+08", "unit": "transitions/s"}, rows["clk_sys"]
assert [rows["step"][c] for c in ("kind", "source", "value", "unit")] == ["logic", "rate", "12.5", "%"]
PY
sed 's/"step"/"stop"/' covered.vlr >missing.vlr
status 1 export missing.vlr --to sta -o missing.tcl
grep -qx '# not in the netlist: net "stop"' missing.tcl
status 1 export missing.vlr --to csv -o missing.csv
sed 's/type="toggle"/type="signal"/' covered.vlr >signal.vlr
rm -f signal.tcl
status 3 export signal.vlr --to sta -o signal.tcl
[ ! -e signal.tcl ] && grep -q 'give --clock' err
status 0 export signal.vlr --to sta -o signal.tcl --clock clk_sense=50ns --clock clk_sys=20ns
grep -qx 'set period 2e-08' signal.tcl
sed -i '/<Clock name="clk_sense"/d' signal.vlr
status 0 export signal.vlr --to sta -o signal.tcl
grep -q 'all_clocks' signal.tcl
status 2 export covered.vlr --to sta
status 2 export covered.vlr --to xml -o f
for clock in clk clk=10 clk=0ns =1ns clk=xns; do
    status 2 export covered.vlr --to sta -o f --clock $clock
done
