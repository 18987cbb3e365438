# Completion of odoledger-tally for bash: commands and options as its own help tells them.
_odoledger_tally() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= each
    local apps="fuelio drivvo acar fuelly simply-auto lubelogger"
    for each in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $each in [a-z]*) command=$each && break ;; esac
    done
    case $before in
    --format) mapfile -t COMPREPLY < <(compgen -W "text csv json" -- "$word") && return ;;
    --distance) mapfile -t COMPREPLY < <(compgen -W "km mi" -- "$word") && return ;;
    --volume) [ "$command" = import ] && mapfile -t COMPREPLY < <(compgen -W "l usgal ukgal" -- "$word") && return ;;
    add) mapfile -t COMPREPLY < <(compgen -W "fuel repair trip expense" -- "$word") && return ;;
    --from) [ "$command" = import ] && mapfile -t COMPREPLY < <(compgen -W "$apps" -- "$word") && return ;;
    --dates) mapfile -t COMPREPLY < <(compgen -W "dmy mdy ymd" -- "$word") && return ;;
    --decimal) mapfile -t COMPREPLY < <(compgen -W "point comma" -- "$word") && return ;;
    --by) mapfile -t COMPREPLY < <(compgen -W "month quarter year" -- "$word") && return ;;
    esac
    local help words
    help=$("${COMP_WORDS[0]}" $command --help 2>/dev/null)
    if [[ $word == -* ]]; then
        words=$(grep -oE '^ +(-[a-z],)?--[a-z-]+|^ +-[a-z]\b' <<<"$help" | tr ',' ' ')
        [ "$command" ] && words+=" --file"
    elif [ -z "$command" ] && [[ $before != --file ]]; then
        words=$(sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$help")
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -o default -F _odoledger_tally odoledger-tally
