#compdef velorama
# Completion of velorama for zsh.

local -a calls
calls=(
    '--play[show an album over the whole screen]:album:_files -g "*.(#i)vlr"'
    '--web-album[write an album as web pages]:album:_files -g "*.(#i)vlr"'
    '--check[list the slides of an album and how each was found]:album:_files -g "*.(#i)vlr"'
    '--wallpaper[make a picture the wallpaper]:picture:_files -g "*.(#i)(jpg|jpeg|bmp|gif|png)"'
    '--export-settings[write the settings as a registry text]:file:_files'
    '--import-settings[take over what a registry text says]:file:_files -g "*.(#i)reg"'
    '--help[print a short help]'
    '--version[print the version]'
)

case ${words[(r)(--play|--web-album|--check|--wallpaper|--export-settings|--import-settings|--help|--version)*]} in
    --play*)
        _arguments $calls[1] \
            '--screen[number of the screen]:number, from 1:' \
            '--interval[time of a slide]:seconds:' \
            '*--music[music in place of the music list]:track:_files -g "*.(#i)(mp3|wav|mid)"' \
            '--once[end after the last slide]' \
            '--lock[only a signal of the system ends it]'
        ;;
    --web-album*)
        _arguments $calls[2] \
            '--to[folder of the pages]:folder:_files -/' \
            '--title[title of the pages]:title:' \
            '--photo-size[size of a photo in pixels]:pixels, 100 to 3000:' \
            '--thumbnail-size[size of a thumbnail in pixels]:pixels, 10 to 2000:' \
            '--colours[colours of the pages]:colour:_values -s , colour "page:colour" "text:colour" "bar:colour" "title-bar:colour" "title-bar-text:colour"'
        ;;
    --check*)
        _arguments $calls[3] '--json[the list for scripts]'
        ;;
    --wallpaper*)
        _arguments $calls[4]
        ;;
    --export-settings*)
        _arguments $calls[5] '--utf8[write it in UTF-8]'
        ;;
    --import-settings*)
        _arguments $calls[6]
        ;;
    --help | --version) ;;
    *)
        _arguments $calls '::album:_files -g "*.(#i)vlr"'
        ;;
esac
