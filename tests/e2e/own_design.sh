#!/usr/bin/env bash
# own_design.sh PROGRAM: starts the program under Xvfb in a folder that holds only Verilog, and in
# one that holds only a netlist, and gets to a saved configuration with nothing but keys.
# With E2E_PICTURES=DIR, a picture of each step is left there.
set -euo pipefail

program=$1
needed=(yosys)
# shellcheck source=driver.sh
source "$(dirname "$0")/driver.sh"

# The project's window is in front, and the wizard's file opens in it.
create_configuration() {
    keys alt+f n Return
    wait_for "the wizard comes" focused "New VLR Config File"
    xdotool type --delay 40 power
    picture "$1-wizard"
    keys Return
    wait_for "the file is there" test -s power.vlr
    wait_for "the wizard goes" focused "blinky – Workbench"
    edit_and_save power.vlr
    picture "$1-saved"
    quit
}

synthesis_has_ended() {
    [ -s netlist.json ] && ! pgrep -P "$pid" -x yosys
}

mkdir "$folder/blinky" "$folder/result"

# Verilog only: project, device, synthesis, configuration.
cd "$folder/blinky"
cat >blinky.v <<'END'
module blinky(input clk, input [3:0] step, output [3:0] led);
    reg [25:0] count = 0;
    always @(posedge clk)
        count <= count + step;
    assign led = count[25:22];
endmodule
END
start Workbench
picture verilog-start
keys alt+f n p
wait_for "the project page comes" focused "New Project"
picture verilog-project
keys alt+h
wait_for "the device dialog comes" focused "Choose Device"
xdotool type --delay 40 UP5K-SG
picture verilog-device
keys Return
wait_for "the device dialog goes" focused "New Project"
picture verilog-chosen
keys Return
wait_for "the project opens" focused "blinky – Workbench"
picture verilog-opened
keys ctrl+r
wait_for "synthesis ends" synthesis_has_ended
picture verilog-synthesized
create_configuration verilog
cp netlist.json "$folder/result/design.json"

# A netlist only, named on the command line: one question.
cd "$folder/result"
start "New Project" design.json
picture netlist-project
keys Return
wait_for "the project opens" focused "blinky – Workbench"
picture netlist-opened
create_configuration netlist
grep -q '"device": "iCE40HX8K-CT256"' blinky.fpgaproj || fail "the device is of the netlist's family"

# Both the last project and the netlist lead back to it.
start "blinky – Workbench"
picture netlist-again
quit
start "blinky – Workbench" design.json
quit
echo "from Verilog and from a netlist to a configuration"
