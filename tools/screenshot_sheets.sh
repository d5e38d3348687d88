#!/bin/bash
# screenshot_sheets.sh [PROGRAM [OUT [-]]]: one sheet of all pages and windows for each font, scale,
# size and palette in the list below, to be looked at. OUT is build/sheets. A line of the list is a
# font, a scale and the size of the window in pixels of the screen; "own" is the size that it comes
# up in. With - the list comes from the standard input.
# Needs what screenshots.sh needs, qt6-gtk-platformtheme, and the fonts: fonts-cantarell,
# fonts-noto-core, fonts-dejavu-core.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
program=${1:-$root/build/release/velorama} out=${2:-$root/build/sheets}

list='DejaVu Sans 9|1|own
DejaVu Sans 14|1|own
Noto Sans 10|1|own
Noto Sans 20|1|own
Cantarell 11|1|own
Cantarell 11|1|500x400
Cantarell 11|1.25|1000x760
Cantarell 11|1.5|1280x900
Cantarell 11|2|1600x1200
Cantarell 11|1|1920x1080
Cantarell 11|1|3840x2160'
if [[ ${3:-} == - ]]; then
    list=$(cat)
fi

# Small ones as they are, side by side; a large window would leave nothing to be seen.
sheet() {
    local folder=$1 suffix=$2
    local pictures=() file
    for file in "$folder"/*.png; do
        if [[ $suffix == -dark && $file == *-dark.png || -z $suffix && $file != *-dark.png ]]; then
            pictures+=("$file")
        fi
    done
    montage "${pictures[@]}" -label '%t' -tile 3x -geometry '740x560>+6+6' -background '#888' \
        "$folder-sheet$suffix.png"
}

while IFS='|' read -r font scale size; do
    folder=$out/${font// /-}-$scale-$size
    mkdir -p "$folder"
    "$root/tools/screenshots.sh" "$program" "$folder" "$scale" "$size" "$font" </dev/null
    sheet "$folder" ''
    sheet "$folder" -dark
    echo "$folder-sheet.png"
done <<<"$list"
