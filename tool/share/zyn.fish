# fish completion of zyn. Commands, options and formats are asked from the tool itself; in English, whatever the user
# speaks.

function __zyn_ask
    LC_ALL=C command zyn $argv 2>/dev/null
end

# The commands of the tool, or of a command of it.
function __zyn_commands
    __zyn_ask $argv --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p'
end

# Folders, and files of these extensions (a regular expression).
function __zyn_files
    __fish_complete_path (commandline -ct) | string match -r -- "^[^\t]*(?:/|$argv[1])(?:\t.*)?\$"
end

function __zyn_complete
    set -l words (commandline -opc)[2..]
    switch "$words[-1]"
        case -f --format
            __zyn_ask formats | awk 'NR > 1 { print $1 }'
            return
        case -d --directory
            __fish_complete_directories (commandline -ct) ''
            return
        case -o --output
            __fish_complete_path (commandline -ct)
            return
        case --logo
            __zyn_files '\.(?:png|jpe?g|svg)'
            return
        case --style
            __zyn_files '\.xslt?'
            return
    end
    set -l path
    set -l commands (__zyn_commands)
    for word in $words
        string match -q -- '-*' $word; and continue
        contains -- $word $commands; or break
        set -a path $word
        test "$path" = help; or set commands (__zyn_commands $path)
    end
    if string match -q -- '-*' (commandline -ct)
        __zyn_ask $path --help | string match -r '^ +-[^ ]+' | string trim | string split ,
    else if set -q commands[1]
        printf '%s\n' $commands
    else
        switch "$path[1]"
            case convert
                __zyn_files '\.(?:zyr(?:\.gz)?|stdf?(?:\.(?:gz|bz2|xz|zst))?)'
            case statistics
                __zyn_files '\.zyr(?:\.gz)?'
            case show check
                __zyn_files '\.(?:zyr|stdf?|tpl|ini)(?:\.(?:gz|bz2|xz|zst))?'
            case formats help simulate
            case '*'
                __zyn_files '\.(?:zyr|stdf?|zya)(?:\.(?:gz|bz2|xz|zst))?'
        end
    end
end

complete -c zyn -f -a '(__zyn_complete)'
