#!/bin/bash
# screenshots.sh [PROGRAM [OUT [SCALE [SIZE [FONT]]]]]: takes the pictures of docs/screenshots/ on an X
# server in memory, light and dark. OUT is docs/screenshots, SCALE 1 and SIZE 1280x860 unless given;
# SIZE "own" leaves the window as it comes up. With a FONT, as "Cantarell 11", there are also the
# other windows of the program and what it shows a new user, and no show. The pictures show the home
# folder of a user who does not exist, and the program in a folder of /opt: both are mounted for this
# script alone, as root or where users may have namespaces of their own. Needs the packages of the
# groups build and screen, sqlite3, and qt6-gtk-platformtheme for the dark ones.
set -euo pipefail

# --- outside: copies everything, because /home will be hidden, and fetches the pictures ---

if [[ ${1:-} != --inside ]]; then
    root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
    program=${1:-$root/build/release/velorama} out=${2:-$root/docs/screenshots}
    work=$(mktemp -d /tmp/velorama-screenshots.XXXXXX)
    trap 'rm -rf "$work"' EXIT
    mkdir "$work/out"
    cp "$program" "$work/velorama"
    cp -r "$root"/{samples,images} "$root"/tools/{settings_store,desktop}.sh "${BASH_SOURCE[0]}" "$work/"
    as_root=(--map-root-user)
    if ((EUID == 0)); then
        as_root=()
    fi
    (cd "$work" && unshare "${as_root[@]}" --mount bash "$work/screenshots.sh" --inside "$work" \
        "${3:-1}" "${4:-1280x860}" "${5:-}")
    mkdir -p "$out"
    cp "$work"/out/* "$out/"
    exit
fi

work=$2 scale=$3 size=$4 font=$5
source "$work/settings_store.sh"
source "$work/desktop.sh"

end_all() {
    # Asked to end, it would ask in its turn whether to save.
    if [[ -n ${running:-} ]]; then
        kill -KILL "$running" 2>/dev/null || true
    fi
    end_desktop
}
trap end_all EXIT

fail() {
    echo "screenshots: $1" >&2
    cat "$work/errors" >&2 2>/dev/null || true
    exit 1
}

# --- the user's home ---

album() {
    local name=$1 note=$2
    shift 2
    printf '%d|%s \r\n' $# "$note" >"$HOME/Pictures/$name.vlr"
    printf '%s\r\n' "${@/#/$HOME/Pictures/}" '' >>"$HOME/Pictures/$name.vlr"
}

# The samples that a new user is shown lie beside the program.
install_program() {
    mount -t tmpfs tmpfs /opt
    mkdir /opt/velorama
    cp -r "$work"/{velorama,samples,images} /opt/velorama/
}

make_home() {
    mount -t tmpfs tmpfs /home
    export HOME=/home/ann
    mkdir -p "$HOME"/{Documents,Downloads,Music,Videos,.config} \
        "$HOME"/Pictures/{Landscapes,Garden,"By the sea"}
    cp "$work"/samples/* "$HOME/Pictures/Landscapes/"
    cp "$work"/samples/{Harbour,Lighthouse,Sailing,Sea}* "$HOME/Pictures/By the sea/"
    touch "$HOME/Music"/{"Morning walk.mp3","Rain on the roof.mp3","Slow river.mid","Evening bells.wav"}
    album 'Calm evenings' 'For the screen in the hall' "Landscapes/Sea at dusk.jpg" \
        "Landscapes/Starry night.jpg" "Landscapes/Balloons at sunrise.jpg" \
        "Landscapes/Misty mountains.jpg" "Landscapes/Forest light.jpg" \
        "Landscapes/Autumn leaves.jpg" "Landscapes/Desert dunes.jpg"
    album 'By the sea' "Summer at Grandmother's" "By the sea/Lighthouse.jpg" \
        "By the sea/Harbour in fog.jpg" "By the sea/Sea at dusk.jpg"
    album 'Garden' '' "Landscapes/Poppy meadow.bmp" "Landscapes/Autumn leaves.jpg"
}

# put KEY NAME TEXT
put() { store_put "$HOME/.config" "$1" "$2" "$3"; }

choose_settings() {
    put 'mfrmPRGMAIN\View' TABIDX 1
    put 'mfrmPRGMAIN\View' Slideshow "$HOME/Pictures/Calm evenings.vlr"
    put 'frmTOOLSSETTINGS\Items' 'Files Location' "$HOME/Pictures/Landscapes"
    put 'frmCONFIG\Items' INTERVAL 20
    put 'frmCONFIG\Items' TRANSITION 60
    put 'mfrmPRGMAIN\Items Total' 'lvwALBUMSList Total' 3
    put 'mfrmPRGMAIN\Details' lvwALBUMS1 "$HOME/Pictures/By the sea.vlr"
    put 'mfrmPRGMAIN\Details' lvwALBUMS2 "$HOME/Pictures/Calm evenings.vlr"
    put 'mfrmPRGMAIN\Details' lvwALBUMS3 "$HOME/Pictures/Garden.vlr"
    put 'mfrmPRGMAINAUD\Items Total' 'lstMUSICList Total' 4
    local row=0 file
    for file in "$HOME"/Music/*; do
        put 'mfrmPRGMAINAUD\Details' "lstMUSIC$((row++))" "$file"
    done
}

# --- the program ---

main_window() { xdotool search --all --onlyvisible --pid "$running" --name ' - Velorama|^Velorama' | grep -m1 .; }

press() {
    kill -0 "$running" 2>/dev/null || fail "the program ended too early"
    xdotool key --delay 80 "$@"
}

# dialog TITLE: the window that has the keyboard, if it is this dialog. Others come up before some.
dialog() {
    local active
    active=$(xdotool getactivewindow) && [[ $active != "$window" ]] &&
        [[ $(xdotool getwindowname "$active") == "$1" ]] && echo "$active"
}

# The pointer rests where it lights nothing up.
start_program() {
    rm -rf "$HOME/.config/velorama"
    if [[ ${1:-} != fresh ]]; then
        choose_settings
    fi
    (cd "$HOME" && exec /opt/velorama/velorama) 2>"$work/errors" &
    running=$!
    pids+=("$running")
    until_true main_window || fail "no window came up"
    window=$(main_window)
    xdotool windowactivate --sync "$window" mousemove $((screen_width - 10)) $((screen_height - 20))
    if [[ $size != own ]]; then
        xdotool windowsize "$window" "${size%x*}" "${size#*x}" windowmove "$window" 100 100
    fi
    sleep 4
}

# take NAME WINDOW
take() {
    import -silent -window "$2" "$work/out/$1$suffix.png"
    convert "$work/out/$1$suffix.png" -strip -dither None -colors 256 "PNG8:$work/small.png"
    mv "$work/small.png" "$work/out/$1$suffix.png"
}

# take_dialog NAME TITLE
take_dialog() {
    until_true dialog "$2" || fail "no dialog: $1"
    sleep 0.7
    take "$1" "$(dialog "$2")"
}

take_pages() {
    local page
    for page in slideshows pictures music webalbum help; do
        sleep 1
        take "${1:-}page-$page" "$window"
        press ctrl+Tab
    done
}

# With its bar, as large as the other pictures.
take_show() {
    press F5
    sleep 6
    press Right
    sleep 5
    xdotool mousemove 1200 1719
    sleep 1.5
    import -silent -window root -resize 1280x860 -strip -quality 82 "$work/out/show.jpg"
    xdotool mousemove 2550 100
    press Escape
    until_true main_window || fail "the main window did not come back"
    xdotool windowactivate --sync "$window"
    sleep 0.5
}

take_settings() {
    press alt+s
    sleep 0.3
    press t
    take_dialog settings "Slideshow Settings"
    press Escape
    sleep 0.5
}

# take_chosen NAME TITLE KEY...: the dialog that the keys bring up.
take_chosen() {
    local name=$1 title=$2
    shift 2
    press "$1"
    sleep 0.3
    if (($# > 1)); then
        press "${@:2}"
    fi
    take_dialog "$name" "$title"
    press Escape
    until_true main_window
    xdotool windowactivate --sync "$window"
    sleep 0.5
}

take_others() {
    take_chosen preview 'Picture Preview' F11
    take_chosen about About alt+h a
    take_chosen update 'Check for Updates' alt+h u
    take_chosen help Help F1
}

end_program() {
    # Every picture is taken, and nothing of this home is to be kept.
    kill -KILL "$running"
    wait "$running" 2>/dev/null || true
}

# A slide has been removed, so that there is something to save.
take_question() {
    press alt+d
    sleep 0.3
    press c
    sleep 0.5
    press alt+F4
    take_dialog question Help
}

run_once() {
    suffix=$1
    start_program
    take_pages
    take_settings
    if [[ -n $font ]]; then
        take_others
    elif [[ -z $suffix ]]; then  # a show has its own colours
        take_show
    fi
    take_question
    end_program
    if [[ -n $font ]]; then
        start_program fresh
        take_pages new-
        end_program
    fi
}

install_program
make_home
export QT_SCALE_FACTOR=$scale
screen_width=2560 screen_height=1720
if [[ $size != own && ${size%x*} -gt 2400 ]]; then
    screen_width=$((${size%x*} + 200)) screen_height=$((${size#*x} + 200))
fi
start_desktop "$work" "${screen_width}x$screen_height"
# The theme of the desktop, asked for by the means of desktops.
use_theme() { export QT_QPA_PLATFORMTHEME=gtk3 QT_STYLE_OVERRIDE=Fusion GTK_THEME=$1; }
if [[ -n $font ]]; then
    mkdir -p "$HOME/.config/gtk-3.0"
    printf '[Settings]\ngtk-font-name=%s\n' "$font" >"$HOME/.config/gtk-3.0/settings.ini"
    use_theme Adwaita
fi
run_once ''
use_theme Adwaita:dark
run_once -dark
