# bash completion of zyn. What can be completed is asked from the tool itself, so nothing has to be kept in step.

# The tool in English, whatever the user speaks.
_zyn_ask() { LC_ALL=C zyn "$@" 2>/dev/null; }

# The commands that a help text lists.
_zyn_commands() { sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$1"; }

_zyn() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} word help
    local -a command=()
    help=$(_zyn_ask --help)
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ $word == -* ]] && continue
        grep -qx -- "$word" <<<"$(_zyn_commands "$help")" || break
        command+=("$word") # which may have commands of its own
        help=$(_zyn_ask "${command[@]}" --help)
    done
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
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(grep -oE '^ +-[^ ]+' <<<"$help" | tr -s ' ,' '\n')" -- "$current")
    elif [[ -n $(_zyn_commands "$help") ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_zyn_commands "$help")" -- "$current")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        compopt -o filenames
    fi
}
complete -F _zyn zyn
