#!/usr/bin/env bash
# sample.sh PROGRAM SAMPLE SCRIPTS: what the sample's dump and simulations of its netlist cover,
# hierarchical and flattened, is what an independent count says. Skipped (77) without the tools.
set -euo pipefail

program=$1
sample=$2
scripts=$3
for tool in yosys iverilog python3; do
    command -v $tool >/dev/null || { echo "Skipped: $tool is not installed."; exit 77; }
done
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$sample/netlist.json" hierarchy.json
cp "$sample/activity.vcd" rtl.vcd
yosys -q -p 'read_json hierarchy.json; write_verilog -norename hierarchy.v; flatten;
    write_json flat.json; write_verilog -norename flat.v'
for form in hierarchy flat; do
    sed "s/activity.vcd/$form.vcd/" "$sample/sim/sample_tb.v" >bench.v
    iverilog -g2005 -o simulation -s sample_tb bench.v $form.v "$sample/fern/cells.v"
    vvp -n simulation >/dev/null
done
grep -q '^.scope module u_uart ' hierarchy.vcd
grep -q 'u_uart\.clk ' flat.vcd

for netlist in hierarchy flat; do
    for dump in rtl hierarchy flat; do
        "$program" scopes --netlist $netlist.json --format json --max 1 $dump.vcd >report.json
        python3 "$scripts/countcoverage.py" $netlist.json $dump.vcd sample_tb/dut >count.json
        python3 - $netlist $dump <<'PY'
import json, sys
(file,) = json.load(open("report.json"))["files"]
(best,) = file["candidates"]
assert (best["scope"], best["instance"]) == ("sample_tb/dut", ""), best
assert best["byKind"] == json.load(open("count.json")), (sys.argv, best)
assert sys.argv[2] == "rtl" or best["covered"] == best["nets"] == 489, (sys.argv, best)
PY
    done
done
