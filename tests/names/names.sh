#!/usr/bin/env bash
# names.sh PROGRAM SAMPLE: exit statuses and reports of `workbench names`, without display and
# plug-in.
set -euo pipefail

program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp "$2"/sample.* "$2/netlist.json" "$folder"
cd "$folder"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
sed 's/"control_FERN_DFFE_Q_\([0-9]*\)": {/"old_\1": {/; s/"control_FERN_DFFE_Q": {/"control_FERN_DFFE_Q_1": {/' \
    netlist.json >renamed.json

# status EXPECTED ARGUMENTS...: leaves what was printed in `out`.
status() {
    local expected=$1 got=0
    shift
    "$program" "$@" >out 2>err || got=$?
    [ "$got" -eq "$expected" ] || { echo "$*: $got instead of $expected"; cat out err; exit 1; }
}

# Nothing is recorded, and nothing is missing.
status 0 names sample.vlr
grep -qx '0 same, 0 moved, 0 missing, 20 unknown' out
status 0 names sample.vlr --record
cp sample.vlr.names first
status 0 names sample.vlr --record
cmp first sample.vlr.names
python3 - <<'PY'
import hashlib, json
memory = json.load(open("sample.vlr.names"))
assert memory["netlist"] == hashlib.sha256(open("netlist.json", "rb").read()).hexdigest()
keys = [(r["section"], r["name"]) for r in memory["records"]]
assert keys == sorted(keys) and len(keys) == 20
PY
status 0 names sample.vlr
grep -qx '20 same, 0 moved, 0 missing, 0 unknown' out

status 1 names sample.vlr --netlist renamed.json
grep -q '^sample.vlr:[0-9]*: missing: flip-flop "control_FERN_DFFE_Q" ' out
grep -q '^    sure: "control_FERN_DFFE_Q_1": it drives "control\[7\]"$' out
status 1 check sample.vlr --netlist renamed.json
status 1 names sample.vlr --netlist renamed.json --format json
cp out plan.json
cp sample.vlr before.vlr

# A plan holds for the file and the netlist that it was made for.
status 3 names sample.vlr --plan plan.json
grep -q 'netlist has changed' err
echo >>sample.vlr
status 3 names sample.vlr --netlist renamed.json --plan plan.json
cmp <(cat before.vlr; echo) sample.vlr
cp before.vlr sample.vlr
status 0 names sample.vlr --netlist renamed.json --plan plan.json
grep -qx '        <Instance name="control_FERN_DFFE_Q_1" value="5"/>' sample.vlr
status 0 check sample.vlr --netlist renamed.json
status 1 names sample.vlr
status 0 names sample.vlr --apply sure
cmp before.vlr sample.vlr
cmp first sample.vlr.names

status 2 names
status 2 names sample.vlr sample.vlr
status 2 names sample.vlr --apply
status 2 names sample.vlr --apply perhaps
status 2 names sample.vlr --format sarif
status 2 names sample.vlr --record --apply sure
status 3 names none.vlr
status 3 names sample.vlr --netlist none.json
echo '<<<<<<<' >sample.vlr.names
status 3 names sample.vlr --record
status 3 check sample.vlr
grep -q '^sample.vlr.names: error: ' out
grep -qx '<<<<<<<' sample.vlr.names
mkdir alone && cp before.vlr alone
status 3 names alone/before.vlr
"$program" --help >out
grep -q '^  names ' out
