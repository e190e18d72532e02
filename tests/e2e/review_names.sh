#!/usr/bin/env bash
# review_names.sh PROGRAM SAMPLE: renames a register in the sample's source, runs synthesis in the
# window, and mends the configuration's names there with nothing but keys.
set -euo pipefail

program=$1
sample=$2
needed=(yosys)
# shellcheck source=driver.sh
source "$(dirname "$0")/driver.sh"

cp -r "$sample" "$folder/sample"
cd "$folder/sample"
saved=$folder/sample/sample.vlr
gives() {
    local got=0
    "$program" check sample.vlr >/dev/null || got=$?
    [ "$got" -eq "$1" ]
}
check_gives() {
    gives "$1" || fail "the check gives $1 $2"
}
lists() {
    grep -q "<Instance name=\"$1\"" "$saved"
}

# Saving records what the names mean.
start "sample – Workbench" --project sample.fpgaproj "$saved"
keys Tab
edit_and_save "$saved"
wait_for "the names are recorded" grep -q '"control_FERN_DFFE_Q"' "$saved.names"
check_gives 0 "at first"

# Another name in the source, another name in the netlist.
sed -i 's/\bcontrol\b/settings/' rtl/sample.v
keys alt+l r
wait_for "the new netlist misses a name" gives 1
keys alt+c s
picture checks

# A review that opens before the window has the new netlist finds nothing: it is left again.
soon() {
    for ((tries = 0; tries < 50; ++tries)); do
        ! "$@" >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    return 1
}
apply() {
    keys alt+a
    lists settings_FERN_DFFE_Q
}
review_and_apply() {
    keys Escape alt+c r
    soon focused "Review Names: sample.vlr" || return 1
    picture review
    soon apply
}
wait_for "the name is mended" review_and_apply
wait_for "the review goes" focused "sample – Workbench"
check_gives 0 "after the review"
picture mended

# The view shows the new file: saving keeps the new name.
keys Tab
edit_and_save "$saved"
lists settings_FERN_DFFE_Q || fail "the saved file has the new name"
check_gives 0 "after the save"
quit
echo "renamed, synthesised, reviewed, applied and saved"
