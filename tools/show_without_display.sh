#!/bin/bash
# show_without_display.sh PROGRAM PICTURES OUT [ARGUMENT...]: plays the folder PICTURES on an X server
# in memory, driven by keys, and leaves screenshots in OUT. Succeeds only if the program did all of
# it, wrote nothing to its error stream and ended with 0. Touches nothing of the user's.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/settings_store.sh"
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

program=$1 pictures=$2 out=$3
shift 3

home=$(mktemp -d)

end_all() {
    # Asked to end, it would ask in its turn whether to save.
    if [[ -n ${running:-} ]]; then
        kill -KILL "$running" 2>/dev/null || true
    fi
    end_desktop
    rm -rf "$home"
}
trap end_all EXIT

fail() {
    echo "velorama: $1" >&2
    cat "$home/errors" >&2 2>/dev/null || true
    exit 1
}

# A slow fade, so that a screenshot falls into its middle, and a slide that outlasts the next one.
choose_settings() {
    mkdir "$home/Pictures"
    ln -s "$pictures" "$home/Pictures/"
    store_put "$XDG_CONFIG_HOME" 'frmTOOLSSETTINGS\Items' 'Files Location' \
        "$home/Pictures/$(basename "$pictures")"
    store_put "$XDG_CONFIG_HOME" 'frmCONFIG\Items' INTERVAL 20
    store_put "$XDG_CONFIG_HOME" 'frmCONFIG\Items' TRANSITION 60
}

start_program() {
    (cd "$pictures" && exec "$program" "$@") 2>"$home/errors" &
    running=$!
    pids+=("$running")
    window=$(until_true main_window && main_window) || fail "no window came up"
    xdotool windowactivate --sync "$window" windowsize "$window" 1280 860 \
        windowmove "$window" 320 90
}

main_window() { xdotool search --all --onlyvisible --pid "$running" --name '^Velorama' | grep -m1 .; }

# Slides that are in no album: the program asks whether to save them. N is No, n is nothing.
has_ended() {
    ! kill -0 "$running" 2>/dev/null || { xdotool key shift+n; false; }
}

press() {
    kill -0 "$running" 2>/dev/null || fail "the program ended too early"
    xdotool key --delay 60 "$@"
}

# The entry is grey until the folder has been read, so it is tried again.
add_all_pictures() {
    press Escape
    press alt+d
    press d
    sleep 0.5
    (($(store_text "$XDG_CONFIG_HOME" 'frmSLIDESHOW\Items' Items) > 0))
}

picture_of() {
    import -silent -window root "$out/$1.png"
    [[ -s $out/$1.png ]] || fail "no screenshot of $1"
}

export HOME=$home
start_desktop "$home" 1920x1080
choose_settings
start_program "$@"
mkdir -p "$out"
rm -f "$out"/main-window.png "$out"/fade.png "$out"/slide.png

until_true add_all_pictures || fail "no picture of $pictures became a slide"
sleep 2
picture_of main-window

press F5
sleep 6
press Right
sleep 1.2
picture_of fade
sleep 6
picture_of slide
cmp -s "$out/fade.png" "$out/slide.png" && fail "the show stands still"

press Escape
until_true main_window || fail "the main window did not come back"
xdotool windowactivate --sync "$window"
press alt+F4
until_true has_ended || fail "the program did not end"
status=0
wait "$running" || status=$?
((status == 0)) || fail "the program ended with $status"
[[ ! -s $home/errors ]] || fail "the program wrote to its error stream:"

echo "Screenshots: $out/main-window.png, $out/fade.png, $out/slide.png"
