# Functions for tests that drive the program on a private X display by real keys. To be sourced
# first, with the test's arguments in place; starts the test once more inside the display.

for tool in Xvfb xvfb-run xauth xdotool xprop openbox "${needed[@]}"; do
    if ! command -v "$tool" >/dev/null; then
        echo "skipped: $tool is not installed"
        exit 77
    fi
done

if [ -z "${E2E_INSIDE:-}" ]; then
    exec env E2E_INSIDE=1 xvfb-run -a -s "-screen 0 ${E2E_SCREEN:-1400x1000}x24" "$0" "$@"
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

# start TITLE ARGUMENTS...: the program, until its window with that title has the keyboard.
start() {
    local title=$1
    shift
    "$program" "$@" >"$folder/log" 2>&1 &
    pid=$!
    children+=("$pid")
    wait_for "the program's window comes" focused "$title"
}

quit() {
    keys ctrl+q
    wait_for "the program ends" gone "$pid"
    wait "$pid" || fail "the program ends with success"
}

# The fields follow the tab bar; a step up or down changes a choice or a number.
type_into_first_field() {
    keys Tab Down ctrl+s
    ! cmp -s "$1" "$folder/before"
}

# edit_and_save FILE: of the view in front.
edit_and_save() {
    cp "$1" "$folder/before"
    wait_for "an edit is saved by Ctrl+S" type_into_first_field "$1"
    grep -q '<Version>1.0</Version>' "$1" || fail "the saved file has its version"
}

# Nothing of the user's settings is read or written, and no desktop's dialogs are used.
export XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data HOME=$folder
export QT_QPA_PLATFORM=xcb QT_QPA_PLATFORMTHEME=${E2E_THEME:-} QT_STYLE_OVERRIDE=fusion
# The libraries of the window system leak on their own, and hand strings without an end to strndup;
# the tests without a display look for both.
export QT_XCB_GL_INTEGRATION=none ASAN_OPTIONS=${ASAN_OPTIONS:-}:detect_leaks=0:strict_string_checks=0
if [ -n "${E2E_CONFIG:-}" ]; then
    mkdir -p "$XDG_CONFIG_HOME"
    cp "$E2E_CONFIG"/* "$XDG_CONFIG_HOME"
fi
openbox --sm-disable >/dev/null 2>&1 &
children+=($!)
wait_for "the window manager runs" window_manager_runs
