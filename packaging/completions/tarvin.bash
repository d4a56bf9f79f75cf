# Completion of tarvin's commands, options and arguments in bash.

_tarvin_offer() {
    mapfile -t COMPREPLY < <(compgen "$@")
}

# With "filenames", bash quotes the names itself.
_tarvin_offer_names() {
    compopt -o filenames 2>/dev/null
    _tarvin_offer "$@"
}

_tarvin() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} options i
    COMPREPLY=()

    # bash splits "--format=json" into three words.
    if [[ $word == = ]]; then
        word=
    elif [[ $before == = ]] && ((COMP_CWORD >= 2)); then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    if [[ $before == --color ]]; then
        _tarvin_offer -W 'auto always never' -- "$word"
        return
    fi
    if ((COMP_CWORD == 1)); then
        _tarvin_offer -W 'scan clean restore exceptions totals forget help --help --version' -- "$word"
        return
    fi
    case ${COMP_WORDS[1]} in
        scan) options= ;;
        clean) options='--from --dry-run --yes' ;;
        restore)
            case $before in
                -f | --format) _tarvin_offer -W 'text json' -- "$word" ;;
                -o | --output) _tarvin_offer_names -f -- "$word" ;;
                *)
                    if [[ $word == -* ]]; then
                        options='--list --dry-run --yes --format --output --color --help'
                        _tarvin_offer -W "$options" -- "$word"
                    fi
                    ;;
            esac
            return
            ;;
        exceptions)
            if ((COMP_CWORD == 2)); then
                _tarvin_offer -W 'list add remove clear --color --help' -- "$word"
                return
            fi
            case ${COMP_WORDS[2]} in
                list) options='--format --color --help' ;;
                clear) options='--missing --color --help' ;;
                *) options='--color --help' ;;
            esac
            if [[ ${COMP_WORDS[2]} == list && $before == @(-f|--format) ]]; then
                _tarvin_offer -W 'text json csv' -- "$word"
            elif [[ $word == -* ]]; then
                _tarvin_offer -W "$options" -- "$word"
            elif [[ ${COMP_WORDS[2]} == @(add|remove) ]]; then
                _tarvin_offer_names -f -- "$word"
            fi
            return
            ;;
        help)
            if ((COMP_CWORD == 2)) && [[ $word != -* ]]; then
                _tarvin_offer -W 'scan clean restore exceptions totals forget help' -- "$word"
                return
            fi
            ;;&
        totals | forget | help)
            if [[ $word == -* ]]; then
                _tarvin_offer -W '--color --help' -- "$word"
            fi
            return
            ;;
        *) return ;;
    esac

    for ((i = 2; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} == -- ]]; then
            _tarvin_offer_names -f -- "$word"
            return
        fi
    done

    case $before in
        -f | --format) _tarvin_offer -W 'text json csv' -- "$word" ;;
        --keep)
            _tarvin_offer -W 'first newest oldest shortest longest preferred' -- "$word"
            ;;
        --prefer | --protect) _tarvin_offer_names -d -- "$word" ;;
        --progress) _tarvin_offer -W 'auto always never' -- "$word" ;;
        -o | --output | --exceptions | --files-from | --from) _tarvin_offer_names -f -- "$word" ;;
        --exclude | --min-size | --max-size) ;;
        *)
            if [[ $word == -* ]]; then
                options+=' --keep --prefer --protect --format --output --no-exceptions --exceptions'
                options+=' --progress --color --help'
                options+=' --exclude --min-size --max-size --one-file-system --skip-hidden'
                options+=' --files-from --null --remember'
                _tarvin_offer -W "$options" -- "$word"
            else
                _tarvin_offer_names -f -- "$word"
            fi
            ;;
    esac
}

complete -F _tarvin tarvin
