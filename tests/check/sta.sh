#!/usr/bin/env bash
# sta.sh PROGRAM SAMPLE: the open static timing analyzer reads what is exported for it, and finds
# every pin. Skipped (77) where it, or the synthesis tool, is not installed.
set -euo pipefail

program=$1
sample=$2
for tool in sta yosys python3; do
    command -v $tool >/dev/null || { echo "Skipped: $tool is not installed."; exit 77; }
done
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$sample"/{sample.fpgaproj,sample.vlr,netlist.json,activity.vcd} .
yosys -q -p 'read_json netlist.json; write_verilog -norename -noattr netlist.v'

# The tool takes neither parameters nor concatenations that are assigned to.
python3 - "$sample/fern/cells.v" <<'PY'
import re, sys
netlist = open("netlist.v").read()
netlist = re.sub(r"#\(\s*(\.\w+\([^()]*\),?\s*)+\)", "", netlist)
netlist = re.sub(r"assign \{[^;]*;", "", netlist)
open("netlist.v", "w").write(netlist)
library = ["library (fern) { delay_model : table_lookup; time_unit : \"1ps\";"
           " capacitive_load_unit (1, pf); voltage_unit : \"1V\"; current_unit : \"1mA\";"]
for width in (8, 9, 10):
    library.append(f"type (b{width}) {{ base_type : array; data_type : bit; bit_width : {width};"
                   f" bit_from : {width - 1}; bit_to : 0; downto : true; }}")
for cell, ports in re.findall(r"module (\w+)\s*(?:#\s*\(.*?\)\s*)?\(([^;]*?)\);",
                              open(sys.argv[1]).read(), re.S):
    library.append(f"cell ({cell}) {{")
    for port in ports.split(","):
        way, bits, name = re.match(r"\s*(\w+)\s+\w+\s*(\[[^]]*\])?\s*(\w+)", port).groups()
        width = 10 if bits and "9" in bits else 8
        library.append(f"bus ({name}) {{ bus_type : b{width}; direction : {way}; }}" if bits
                       else f"pin ({name}) {{ direction : {way}; }}")
    library.append("}")
open("fern.lib", "w").write("\n".join(library + ["}"]))
text = open("sample.vlr").read()
rates = "".join(f'<Net name="{name}" value="10"/>' for name in (
    "mode[1]", "u_store/tone[3]", "u_sense/u_averager/sum[9]", "u_uart/u_tx/shift[4]", "sda",
    "command[7]", "leds[8]"))
files = '<SimuFile><File type="vcd" name="activity.vcd" entity=""/></SimuFile>'
open("sample.vlr", "w").write(
    text.replace("</NetRate>", rates + "</NetRate>").replace("<GlobalEnable", files + "<GlobalEnable"))
PY

"$program" export sample.vlr --to sta -o activity.tcl
[ "$(grep -c '^set_driver_activity' activity.tcl)" -eq 9 ]
[ "$(grep -c '^set_power_activity -input_ports' activity.tcl)" -eq 1 ]
cat >run.tcl <<'TCL'
read_liberty fern.lib
read_verilog netlist.v
link_design sample
create_clock -name clk_sys -period 20833 [get_ports clk_sys]
puts "Begin"
if {[catch {source activity.tcl} message]} { puts "Error: $message" }
puts "End"
exit
TCL
sta -exit run.tcl >log 2>&1 </dev/null || { cat log; exit 1; }
sed -n '/^Begin$/,/^End$/p' log >own
grep -qx End own || { cat log; exit 1; }
if grep -E '^(Error|Warning)' own | grep -v 'this version has no read_vcd'; then
    cat own
    exit 1
fi

# Rates in transitions/s relate to the fastest clock of the tool, whatever its unit of time.
sed '/<Clock name="clk_sense"/d; s/type="toggle"/type="signal"/' sample.vlr >signal.vlr
"$program" export signal.vlr --to sta -o signal.tcl
sed 's/^puts "End"/puts "Period [format %.4g $period]"/; s/activity.tcl/signal.tcl/' run.tcl >signal-run.tcl
sed -i 's/^create_clock .*/&\ncreate_clock -name slow -period 50000 [get_ports clk_sense]/' signal-run.tcl
sta -exit signal-run.tcl 2>&1 </dev/null | tee log | grep -qx 'Period 2.083e-08' || { cat log; exit 1; }

# A pin that is not there is not passed over in silence.
sed -i 's|{u_store/u_tone}|{u_store/u_tune}|' activity.tcl
sta -exit run.tcl 2>&1 </dev/null | grep -q 'Warning: no pin of u_store/u_tune drives'
