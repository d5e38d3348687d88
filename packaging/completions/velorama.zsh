#compdef velorama
# Completion of velorama for zsh.

local -a calls
calls=(
    '--web-album[write an album as web pages]:album:_files -g "*.(#i)vlr"'
    '--check[list the slides of an album and how each was found]:album:_files -g "*.(#i)vlr"'
    '--wallpaper[make a picture the wallpaper]:picture:_files -g "*.(#i)(jpg|jpeg|bmp|gif|png)"'
    '--help[print a short help]'
    '--version[print the version]'
)

case ${words[(r)(--web-album|--check|--wallpaper|--help|--version)*]} in
    --web-album*)
        _arguments $calls[1] \
            '--to[folder of the pages]:folder:_files -/' \
            '--title[title of the pages]:title:' \
            '--photo-size[size of a photo in pixels]:pixels, 100 to 3000:' \
            '--thumbnail-size[size of a thumbnail in pixels]:pixels, 10 to 2000:' \
            '--colours[colours of the pages]:colour:_values -s , colour "page:colour" "text:colour" "bar:colour" "title-bar:colour" "title-bar-text:colour"'
        ;;
    --check*)
        _arguments $calls[2] '--json[the list for scripts]'
        ;;
    --wallpaper*)
        _arguments $calls[3]
        ;;
    --help | --version) ;;
    *)
        _arguments $calls '::album:_files -g "*.(#i)vlr"'
        ;;
esac
