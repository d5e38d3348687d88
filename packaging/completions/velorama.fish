# Completion of velorama for fish.

# True where no call but this one is on the command line.
function __velorama_may
    for call in web-album check wallpaper help version
        if test "$call" != "$argv[1]"; and __fish_contains_opt $call
            return 1
        end
    end
end

complete -c velorama -f
complete -c velorama -n '__velorama_may album' -k -a '(__fish_complete_suffix .vlr)'

complete -c velorama -n '__velorama_may web-album' -l web-album -x -a '(__fish_complete_suffix .vlr)' -d 'Write an album as web pages'
complete -c velorama -n '__fish_contains_opt web-album' -l to -x -a '(__fish_complete_directories)' -d 'Folder of the pages'
complete -c velorama -n '__fish_contains_opt web-album' -l title -x -d 'Title of the pages'
complete -c velorama -n '__fish_contains_opt web-album' -l photo-size -x -d 'Size of a photo in pixels'
complete -c velorama -n '__fish_contains_opt web-album' -l thumbnail-size -x -d 'Size of a thumbnail in pixels'
complete -c velorama -n '__fish_contains_opt web-album' -l colours -x -a 'page= text= bar= title-bar= title-bar-text=' -d 'Colours of the pages'

complete -c velorama -n '__velorama_may check' -l check -x -a '(__fish_complete_suffix .vlr)' -d 'List the slides of an album'
complete -c velorama -n '__fish_contains_opt check' -l json -d 'The list for scripts'

complete -c velorama -n '__velorama_may wallpaper' -l wallpaper -r -F -d 'Make a picture the wallpaper'
complete -c velorama -n '__velorama_may help' -l help -d 'Print a short help'
complete -c velorama -n '__velorama_may version' -l version -d 'Print the version'
