#!/usr/bin/env bash
# check.sh PROGRAM: exit statuses and reports of `workbench check`, without display and plug-in.
set -euo pipefail

program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM

document='<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>'
cat >netlist.json <<'JSON'
{"modules": {"top": {"attributes": {"top": 1},
  "ports": {"clk": {"direction": "input", "bits": [2]}}, "cells": {},
  "netnames": {"clk": {"bits": [2]}}}}}
JSON
echo '{"device": "QF2-10-BG256", "results": {"RES.netlist": "netlist.json"}}' >p.fpgaproj
echo "$document<Config><VCC>1</VCC></Config>" >good.vlr
echo "$document<Config><VCC>2</VCC></Config>" >warned.vlr
echo "$document<Config><AmbientTemp>x</AmbientTemp></Config>" >wrong.vlr
echo "$document<Config>" >cut.vlr

# status EXPECTED ARGUMENTS...: leaves what was printed in `out`.
status() {
    local expected=$1 got=0
    shift
    "$program" check "$@" >out 2>err || got=$?
    [ "$got" -eq "$expected" ] || { echo "check $*: $got instead of $expected"; cat out err; exit 1; }
}

status 0 good.vlr
grep -qx '0 errors, 0 warnings, 0 notes' out
status 0 warned.vlr
status 1 --fail-on warning warned.vlr
status 0 --fail-on warning --disable supply-range warned.vlr
status 1 wrong.vlr
grep -q '^wrong.vlr:1: error: .* \[not-a-number\]$' out
status 0 --fail-on never wrong.vlr
status 3 --fail-on never wrong.vlr cut.vlr
grep -q '\[not-a-config\]$' out
status 3 none.vlr
status 3 --netlist none.json good.vlr
grep -q '^none.json: error: ' out
status 2
status 2 --fail-on sometimes good.vlr
status 2 --disable no-rule good.vlr

status 1 --format sarif --output report.sarif good.vlr wrong.vlr
[ ! -s out ]
python3 -c 'import json; r = json.load(open("report.sarif"))["runs"][0]["results"]; assert len(r) == 1'
status 1 --format json good.vlr wrong.vlr
cp out first
status 1 --format json good.vlr wrong.vlr
cmp out first
python3 - <<'PY'
import hashlib, json
report = json.load(open("out"))
for entry in report["inputs"]:
    assert entry["sha256"] == hashlib.sha256(open(entry["path"], "rb").read()).hexdigest(), entry
assert {"good.vlr", "wrong.vlr", "p.fpgaproj", "netlist.json"} == {e["path"] for e in report["inputs"]}
PY

# Interrupted while it waits for a reader of its report.
mkfifo report.fifo
python3 - "$program" <<'PY'
import signal, subprocess, sys, time
process = subprocess.Popen([sys.argv[1], "check", "--output", "report.fifo", "good.vlr"])
deadline = time.monotonic() + 20
while time.monotonic() < deadline:
    fields = dict(line.split(":", 1) for line in open("/proc/%d/status" % process.pid))
    if int(fields["SigCgt"], 16) & 1 << signal.SIGINT - 1:
        break
    time.sleep(0.01)
process.send_signal(signal.SIGINT)
assert process.wait(20) == 130, process.returncode
PY
[ -p report.fifo ]
"$program" check --output report.fifo good.vlr &
grep -qx '0 errors, 0 warnings, 0 notes' report.fifo
wait $!
"$program" check --output /dev/stdout good.vlr | grep -q ' 0 notes'

# Without a project no netlist is found, and the rules that need none still apply.
mkdir alone
cp wrong.vlr alone
status 3 alone/wrong.vlr
grep -q '\[not-a-number\]$' out

# Only the first argument is a command: anything else opens a file, which needs a display.
got=0
"$program" ./check 2>err || got=$?
[ "$got" -eq 1 ] && grep -q display err
"$program" --help >out
grep -q '^  check ' out
