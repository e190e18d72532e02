#!/usr/bin/env bash
# create_save_reopen.sh PROGRAM SAMPLE: starts the program under Xvfb and, with nothing but keys,
# creates a configuration by the wizard, edits and saves it, quits, and opens it again.
set -euo pipefail

program=$1
sample=$2
needed=()
# shellcheck source=driver.sh
source "$(dirname "$0")/driver.sh"

cp -r "$sample" "$folder/sample"
project=$folder/sample/sample.fpgaproj
saved=$folder/sample/typed.vlr

# Create.
start "sample – Workbench" --project "$project"
keys alt+f n Return
wait_for "the wizard comes" focused "New VLR Config File"
xdotool type --delay 40 typed
picture wizard
keys Return
wait_for "the file is there" test -s "$saved"
grep -q '<Config/>' "$saved" || fail "the wizard's file is empty"
wait_for "the wizard goes" focused "sample – Workbench"
quit

# Open, edit, save.
start "sample – Workbench" --project "$project" "$saved"
keys Tab
picture opened
edit_and_save "$saved"
picture saved
cp "$saved" "$folder/first"
keys ctrl+w
quit

# Open once more: nothing has changed, so nothing is asked and nothing is written.
start "sample – Workbench" --project "$project" "$saved"
picture reopened
keys ctrl+s
quit
cmp "$saved" "$folder/first" || fail "reopening leaves the file as it was"
echo "created, edited, saved and opened again"
