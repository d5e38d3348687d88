# For scripts to source: a desktop of their own on an X server in memory. They define `fail TEXT`,
# which tells TEXT and ends the script, and call end_desktop however they end.
# shellcheck shell=bash

# What end_desktop ends, the last one first. Programs that run in the desktop are added to it.
pids=()

end_desktop() {
    local i
    for ((i = ${#pids[@]} - 1; i >= 0; i--)); do
        kill "${pids[i]}" 2>/dev/null || true
        wait "${pids[i]}" 2>/dev/null || true
    done
}

# until_true COMMAND...: tries for 30 seconds.
until_true() {
    local tries
    for ((tries = 0; tries < 150; tries++)); do
        if "$@" >/dev/null 2>&1; then
            return
        fi
        sleep 0.2
    done
    return 1
}

wm_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }

# start_desktop FOLDER SIZE: for the user whose home is HOME, with a screen of SIZE, as 1920x1080.
# What only lives as long as the desktop lies in FOLDER.
start_desktop() {
    local folder=$1 screen=$2
    export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share XDG_CACHE_HOME=$HOME/.cache
    export XDG_RUNTIME_DIR=$folder/runtime QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
    mkdir -m 700 "$XDG_RUNTIME_DIR"
    Xvfb -displayfd 3 -screen 0 "${screen}x24" -noreset -nolisten tcp 3>"$folder/display" 2>/dev/null &
    pids+=($!)
    until_true test -s "$folder/display" || fail "the X server did not start"
    DISPLAY=:$(<"$folder/display")
    export DISPLAY
    unset WAYLAND_DISPLAY
    dbus-daemon --session --nofork --address="unix:path=$XDG_RUNTIME_DIR/bus" 2>/dev/null &
    pids+=($!)
    export DBUS_SESSION_BUS_ADDRESS=unix:path=$XDG_RUNTIME_DIR/bus
    until_true test -S "$XDG_RUNTIME_DIR/bus" || fail "the session bus did not start"
    openbox --sm-disable >/dev/null 2>&1 &
    pids+=($!)
    until_true wm_runs || fail "the window manager did not start"
}
