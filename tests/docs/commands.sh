#!/usr/bin/env bash
# commands.sh PROGRAM SOURCE_DIR: tries the commands that the documents show, on a copy of the sample,
# and the hook that they give for commits.
set -euo pipefail

program=$1
source=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
export GIT_CONFIG_GLOBAL=/dev/null GIT_AUTHOR_NAME=t GIT_AUTHOR_EMAIL=t@localhost
export GIT_COMMITTER_NAME=t GIT_COMMITTER_EMAIL=t@localhost

mkdir "$folder/bin"
ln -s "$program" "$folder/bin/workbench"
PATH=$folder/bin:$PATH
cp -rL "$source/examples/sample" "$folder/design"
cd "$folder/design"
cp sample.vlr power.vlr

fail() {
    echo "not so: $*"
    exit 1
}

# The lines of code blocks in $1 that begin with $2, without the dash of a list.
commands() {
    awk '/^ *```/ { inside = !inside; next } inside' "$1" | sed 's/^ *\(- \)\?//' | grep "^$2 " || true
}

tried=0
for document in README.md docs/ci.md docs/projects.md docs/checks.md; do
    while read -r command; do
        # Words in capitals stand for what the reader puts there.
        [[ ! $command =~ [A-Z]{3,} ]] || continue
        status=0
        bash -c "$command" >"$folder/out" 2>&1 || status=$?
        [ $status -le 1 ] || { cat "$folder/out"; fail "$document: $command ends with $status"; }
        tried=$((tried + 1))
    done < <(commands "$source/$document" 'workbench \(check\|names\|scopes\|coverage\|export\)')
done
[ $tried -ge 2 ] || fail "the documents show commands"

device=$(sed -n 's/.*--device \([A-Z0-9-]*\).*/\1/p' "$source/docs/ci.md" | head -n 1)
workbench check --device "$device" --disable supply-range,supply-absent power.vlr >"$folder/out" ||
    { cat "$folder/out"; fail "there is the device $device"; }
! grep -q 'device-unknown' "$folder/out" || fail "the device $device is in the catalogue"

# The sample is as a pipeline wants it.
workbench check --fail-on warning sample.vlr

# The hook lets a good configuration in and keeps a bad one out.
git init -q .
awk '/pre-commit/ { found = 1 } found && /^```/ { inside = !inside; next } found && inside' \
    "$source/docs/ci.md" >.git/hooks/pre-commit
chmod +x .git/hooks/pre-commit
git add sample.vlr
git commit -qm good || fail "the hook lets a good configuration in"
sed 's/<AmbientTemp>[^<]*/<AmbientTemp>warm/' sample.vlr >bad.vlr
git add bad.vlr
! git commit -qm bad >/dev/null 2>&1 || fail "the hook keeps a bad configuration out"
