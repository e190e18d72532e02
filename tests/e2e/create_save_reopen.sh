#!/usr/bin/env bash
# create_save_reopen.sh PROGRAM SAMPLE: starts the program under Xvfb and, with nothing but keys,
# creates a configuration by the wizard, opens, edits and saves it, quits, and opens it again.
set -euo pipefail

program=$1
sample=$2

for tool in Xvfb xvfb-run xauth xdotool xprop openbox; do
    if ! command -v "$tool" >/dev/null; then
        echo "skipped: $tool is not installed"
        exit 77
    fi
done

if [ -z "${E2E_INSIDE:-}" ]; then
    exec env E2E_INSIDE=1 xvfb-run -a -s "-screen 0 1400x1000x24" "$0" "$@"
fi

folder=$(mktemp -d)
children=()
clean_up() {
    for child in "${children[@]}"; do
        kill "$child" 2>/dev/null || true
    done
    rm -rf "$folder"
}
trap clean_up EXIT

fail() {
    echo "not so: $*"
    echo "windows:"
    xdotool search --onlyvisible --name . getwindowname %@ 2>/dev/null || true
    echo "the program said:"
    tail -n 20 "$folder/log" 2>/dev/null || true
    if [ -n "${E2E_PICTURES:-}" ]; then
        import -window root "$E2E_PICTURES/failed.png"
    fi
    exit 1
}

# wait_for WHAT COMMAND...: until the command succeeds.
wait_for() {
    local what=$1
    shift
    local tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        [ $tries -lt 900 ] || fail "$what"
        sleep 0.1
    done
}

# The window whose whole title is $1 has the keyboard.
focused() {
    [ "$(xdotool getactivewindow getwindowname)" = "$1" ]
}

window_manager_runs() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

gone() {
    ! kill -0 "$1" 2>/dev/null
}

picture() {
    [ -z "${E2E_PICTURES:-}" ] || import -window root "$E2E_PICTURES/$1.png"
}

keys() {
    xdotool key --clearmodifiers --delay 40 "$@"
}

start() {
    "$program" --project "$folder/sample/sample.fpgaproj" "$@" >"$folder/log" 2>&1 &
    pid=$!
    children+=("$pid")
    wait_for "the program's window comes" focused "sample – Workbench"
}

quit() {
    keys ctrl+q
    wait_for "the program ends" gone "$pid"
    wait "$pid" || fail "the program ends with success"
}

# Nothing of the user's settings is read or written, and no desktop's dialogs are used.
export XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data HOME=$folder
export QT_QPA_PLATFORM=xcb QT_QPA_PLATFORMTHEME= QT_STYLE_OVERRIDE=fusion
# The libraries of the window system leak on their own, and hand strings without an end to strndup;
# the tests without a display look for both.
export QT_XCB_GL_INTEGRATION=none ASAN_OPTIONS=${ASAN_OPTIONS:-}:detect_leaks=0:strict_string_checks=0
cp -r "$sample" "$folder/sample"
openbox --sm-disable >/dev/null 2>&1 &
children+=($!)
wait_for "the window manager runs" window_manager_runs

saved=$folder/sample/typed.vlr

# Create.
start
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
start "$saved"
keys Tab
picture opened
cp "$saved" "$folder/before"
type_into_first_field() {
    # The first tab's fields follow the tab bar; a step up changes a choice or a number.
    keys Tab Down ctrl+s
    ! cmp -s "$saved" "$folder/before"
}
wait_for "an edit is saved by Ctrl+S" type_into_first_field
grep -q '<Version>1.0</Version>' "$saved" || fail "the saved file has its version"
picture saved
cp "$saved" "$folder/first"
keys ctrl+w
quit

# Open once more: nothing has changed, so nothing is asked and nothing is written.
start "$saved"
picture reopened
keys ctrl+s
quit
cmp "$saved" "$folder/first" || fail "reopening leaves the file as it was"
echo "created, edited, saved and opened again"
