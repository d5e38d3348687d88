#!/bin/sh
# Draws the pictures that every web album takes along, the same ones each time:
#   tools/draw_album_images.sh [FOLDER]        (images/ where none is named)
# They stand on the album's control bar and match its first colours. A GIF knows no soft edges:
# pixels that are half covered take the bar's colour, the rest of the surroundings is clear.
set -eu

folder=${1:-$(dirname "$0")/../images}
mkdir -p "$folder"

bar='#C0C0FF'
disc='#5A5AD6'
disc_grey='#ACACE6'
sign='#FFFFFF'
sign_grey='#E4E4FB'
frame='#5A5AD6'
paper='#E4F4FE'
large=8   # drawn so many times larger, for smooth edges

# shrink WIDTHxHEIGHT FILE: a large drawing on standard input, as a small GIF
shrink() {
    convert png:- -filter box -resize "$1!" \
        \( +clone -alpha extract -threshold 30% \) \
        \( -clone 0 -background "$bar" -alpha remove -alpha off \) \
        -delete 0 +swap -alpha off -compose CopyOpacity -composite \
        -dither None -colors 64 -strip "gif:$folder/$2"
}

# arrow FILE DISC SIGN POINTS: a disc of 20 pixels with a bent line
arrow() {
    side=$((20 * large))
    convert -size "${side}x${side}" xc:none \
        -fill "$2" -draw "circle 80,80 80,5" \
        -fill none -stroke "$3" -strokewidth 18 \
        -draw "stroke-linecap round stroke-linejoin round path '$4'" png:- |
        shrink 20x20 "$1"
}

to_left='M 92,48 L 60,80 L 92,112'
to_right='M 68,48 L 100,80 L 68,112'
arrow arrowleft.gif "$disc" "$sign" "$to_left"
arrow arrowleftdis.gif "$disc_grey" "$sign_grey" "$to_left"
arrow arrowright.gif "$disc" "$sign" "$to_right"
arrow arrowrightdis.gif "$disc_grey" "$sign_grey" "$to_right"

# The end of the album: an empty sheet with a dashed rim, on it hills and a sun in outline. Twice
# as large as it is mostly shown, for sharp screens.
convert -size 800x600 xc:none \
    -fill "$paper" -stroke none -draw 'roundrectangle 12,12 788,588 48,48' \
    -fill none -stroke "$frame" -strokewidth 14 \
    -draw 'stroke-linecap round stroke-dasharray 42 40 roundrectangle 20,20 780,580 44,44' \
    -stroke '#9C9CEC' -strokewidth 22 \
    -draw 'stroke-linecap round stroke-linejoin round path "M 150,440 L 320,250 L 440,380 L 510,310 L 650,440 Z"' \
    -draw 'circle 560,200 560,154' png:- |
    shrink 200x150 end.gif
