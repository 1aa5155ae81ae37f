# Completion of vornctl for bash. The candidates come from vornctl itself, so that they never differ from
# what it takes.

_vornctl()
{
    local cur prev words cword
    _init_completion -n = || return

    # Words as they are typed may be quoted. Only the last one is needed as the shell would read it, and
    # only to compare: it is taken apart here, and never evaluated.
    local typed=$cur quote= word
    case $typed in
    \"* | \'*)
        quote=${typed:0:1}
        typed=${typed:1}
        ;;
    *)
        typed=${typed//\\/}
        ;;
    esac

    local -a found
    mapfile -t found < <(vornctl --complete "${words[@]:1:cword-1}" "$typed" 2>/dev/null)
    COMPREPLY=()
    if [[ ${found[0]-} == @files ]]; then
        [[ $cur == --*=* ]] && cur=${cur#*=} # readline replaces only what follows a '='
        _filedir
        return
    fi
    for word in "${found[@]}"; do
        [[ $word == "$typed"* ]] || continue
        [[ $word == *= ]] && compopt -o nospace
        # Readline breaks words at '=', and replaces only what follows it.
        [[ $word == *=* && $COMP_WORDBREAKS == *=* && $typed == *=* ]] && word=${word#*=}
        [[ $quote || $word == *= ]] || printf -v word %q "$word"
        COMPREPLY+=("$word")
    done
} &&
    complete -F _vornctl vornctl
