# Completion of velorama for fish.

# True where no call but this one is on the command line.
function __velorama_may
    for call in play web-album check wallpaper export-settings import-settings help version
        if test "$call" != "$argv[1]"; and __fish_contains_opt $call
            return 1
        end
    end
end

complete -c velorama -f
complete -c velorama -n '__velorama_may album' -k -a '(__fish_complete_suffix .vlr)'

complete -c velorama -n '__velorama_may play' -l play -x -a '(__fish_complete_suffix .vlr)' -d 'Show an album over the whole screen'
complete -c velorama -n '__fish_contains_opt play' -l screen -x -d 'Number of the screen'
complete -c velorama -n '__fish_contains_opt play' -l interval -x -d 'Seconds of a slide'
complete -c velorama -n '__fish_contains_opt play' -l music -r -F -d 'Music in place of the music list'
complete -c velorama -n '__fish_contains_opt play' -l once -d 'End after the last slide'
complete -c velorama -n '__fish_contains_opt play' -l lock -d 'Only a signal of the system ends it'

complete -c velorama -n '__velorama_may web-album' -l web-album -x -a '(__fish_complete_suffix .vlr)' -d 'Write an album as web pages'
complete -c velorama -n '__fish_contains_opt web-album' -l to -x -a '(__fish_complete_directories)' -d 'Folder of the pages'
complete -c velorama -n '__fish_contains_opt web-album' -l title -x -d 'Title of the pages'
complete -c velorama -n '__fish_contains_opt web-album' -l photo-size -x -d 'Size of a photo in pixels'
complete -c velorama -n '__fish_contains_opt web-album' -l thumbnail-size -x -d 'Size of a thumbnail in pixels'
complete -c velorama -n '__fish_contains_opt web-album' -l colours -x -a 'page= text= bar= title-bar= title-bar-text=' -d 'Colours of the pages'

complete -c velorama -n '__velorama_may check' -l check -x -a '(__fish_complete_suffix .vlr)' -d 'List the slides of an album'
complete -c velorama -n '__fish_contains_opt check' -l json -d 'The list for scripts'

complete -c velorama -n '__velorama_may wallpaper' -l wallpaper -r -F -d 'Make a picture the wallpaper'
complete -c velorama -n '__velorama_may export-settings' -l export-settings -r -F -d 'Write the settings as a registry text'
complete -c velorama -n '__fish_contains_opt export-settings' -l utf8 -d 'Write it in UTF-8'
complete -c velorama -n '__velorama_may import-settings' -l import-settings -r -F -d 'Take over what a registry text says'
complete -c velorama -n '__velorama_may help' -l help -d 'Print a short help'
complete -c velorama -n '__velorama_may version' -l version -d 'Print the version'
