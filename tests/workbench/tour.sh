#!/usr/bin/env bash
# tour.sh PROGRAM SCHEMA: runs the tour, and checks that it leaves a picture of every step and a
# valid configuration, and nothing behind in the sample project.
set -euo pipefail

program=$1
schema=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$program" --tour "$folder/out"

pictures=("$folder"/out/[0-9][0-9]-*.png)
[ ${#pictures[@]} -ge 4 ] || { echo "only ${#pictures[@]} pictures"; exit 1; }
for picture in "${pictures[@]}"; do
    [ "$(head -c 4 "$picture" | tail -c 3)" = PNG ] || { echo "$picture is no picture"; exit 1; }
done

saved=$folder/out/power.vlr
grep -q '<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>' "$saved"
if command -v xmllint >/dev/null && [ -f "$schema" ]; then
    xmllint --noout --relaxng "$schema" "$saved"
else
    echo "xmllint or $schema is missing: the file is not checked against the schema"
fi

# A tour that cannot begin says why and fails.
if "$program" --tour /dev/null/nowhere 2>"$folder/error"; then
    echo "a folder that cannot be made is taken for a tour that went well"
    exit 1
fi
grep -q 'cannot be copied' "$folder/error"
