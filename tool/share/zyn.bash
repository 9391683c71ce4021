# bash completion of zyn. Commands, options and formats are asked from the tool itself, so nothing has to be kept in
# step but which files a command takes.

# The tool in English, whatever the user speaks.
_zyn_ask() { LC_ALL=C zyn "$@" 2>/dev/null; }

# The commands of the tool, or of a command of it.
_zyn_commands() { _zyn_ask "$@" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p'; }

# Folders, and files of these extensions (a regular expression); without one all files.
_zyn_files() {
    compopt -o filenames
    mapfile -t COMPREPLY < <({
        compgen -d -- "$1"
        compgen -f -- "$1" | grep -E -- "${2-}"
    } | sort -u)
}

_zyn() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} word commands
    local -a path=()
    case $previous in
    -f | --format)
        mapfile -t COMPREPLY < <(compgen -W "$(_zyn_ask formats | awk 'NR > 1 { print $1 }')" -- "${current^^}")
        return
        ;;
    --by)
        mapfile -t COMPREPLY < <(compgen -W "$(_zyn_ask yield --help | tr -s ' \n' ' ' |
            grep -oP '(?<=A line for each )[a-z, ]+(?=;)' | tr -d ,)" -- "$current")
        return
        ;;
    -d | --directory)
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        compopt -o filenames
        return
        ;;
    -o | --output) _zyn_files "$current" && return ;;
    --logo) _zyn_files "$current" '\.(png|jpe?g|svg)$' && return ;;
    --style) _zyn_files "$current" '\.xslt?$' && return ;;
    esac
    commands=$(_zyn_commands)
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ $word == -* ]] && continue
        [[ ${path[*]} == help ]] && commands=$(_zyn_commands)
        grep -qxF -- "$word" <<<"$commands" || break
        path+=("$word")
        commands=$(_zyn_commands "${path[@]}")
    done
    [[ ${path[*]} == help ]] && commands=$(_zyn_commands)
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_zyn_ask "${path[@]}" --help |
            grep -oE '^ +-[^ ]+' | tr -s ' ,' '\n')" -- "$current")
    elif [[ $commands ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
    else
        case ${path[0]-} in
        convert) _zyn_files "$current" '\.(zyr(\.gz)?|stdf?(\.(gz|bz2|xz|zst))?)$' ;;
        statistics) _zyn_files "$current" '\.zyr(\.gz)?$' ;;
        show | check) _zyn_files "$current" '\.(zyr|stdf?|tpl|ini)(\.(gz|bz2|xz|zst))?$' ;;
        formats | help | simulate) COMPREPLY=() ;;
        *) _zyn_files "$current" '\.(zyr|stdf?|zya)(\.(gz|bz2|xz|zst))?$' ;;
        esac
    fi
}
complete -F _zyn zyn
