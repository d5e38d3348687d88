# Completion of velorama for bash. Needs no other package.

# Options of a call; of none, those that name one.
_velorama_options() {
    case $1 in
        --play) echo --screen --interval --music --once --lock ;;
        --web-album) echo --to --title --photo-size --thumbnail-size --colours ;;
        --check) echo --json ;;
        --export-settings) echo --utf8 ;;
        '')
            echo --play --web-album --check --wallpaper --export-settings --import-settings
            echo --help --version
            ;;
    esac
}

# The option among the words before the current one that names the call.
_velorama_call() {
    local word option
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        for option in $(_velorama_options ''); do
            if [[ $word == "$option" ]]; then
                echo "$option"
                return
            fi
        done
    done
}

# Folders, and files with one of these endings, whatever their letter case.
_velorama_files() {
    local word=$1 ending name
    shift
    COMPREPLY=()
    compopt -o filenames 2>/dev/null
    while IFS= read -r name; do
        if [[ -d ${name/#~\//$HOME/} ]]; then
            COMPREPLY+=("$name")
        fi
        for ending in "$@"; do
            [[ ! -d $name && ${name,,} == *".$ending" ]] && COMPREPLY+=("$name")
        done
    done < <(compgen -f -- "$word")
}

_velorama() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}
    COMPREPLY=()
    case $before in
        --play | --web-album | --check) _velorama_files "$word" vlr; return ;;
        --wallpaper) _velorama_files "$word" jpg jpeg bmp gif png; return ;;
        --music) _velorama_files "$word" mp3 wav mid; return ;;
        --export-settings | --import-settings) _velorama_files "$word" reg; return ;;
        --to) _velorama_files "$word"; return ;;
        --colours)
            compopt -o nospace 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -W \
                'page= text= bar= title-bar= title-bar-text=' -- "$word")
            return
            ;;
        --title | --photo-size | --thumbnail-size | --screen | --interval) return ;;
    esac
    if [[ $word == -* || $COMP_CWORD -gt 1 ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_velorama_options "$(_velorama_call)")" -- "$word")
    else
        _velorama_files "$word" vlr
    fi
}

complete -F _velorama velorama
