# Completion of tarvin's commands, options and arguments in bash.

_tarvin_offer() {
    mapfile -t COMPREPLY < <(compgen "$@")
}

# Names of files and folders are quoted by bash itself once it knows that they are names.
_tarvin_offer_names() {
    compopt -o filenames 2>/dev/null
    _tarvin_offer "$@"
}

_tarvin() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} i
    COMPREPLY=()

    # bash makes three words of "--format=json".
    if [[ $word == = ]]; then
        word=
    elif [[ $before == = ]] && ((COMP_CWORD >= 2)); then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    if ((COMP_CWORD == 1)); then
        _tarvin_offer -W 'scan --help --version' -- "$word"
        return
    fi
    [[ ${COMP_WORDS[1]} == scan ]] || return 0

    for ((i = 2; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} == -- ]]; then
            _tarvin_offer_names -d -- "$word"
            return
        fi
    done

    case $before in
        --format) _tarvin_offer -W 'text json csv' -- "$word" ;;
        --progress) _tarvin_offer -W 'auto always never' -- "$word" ;;
        --output | --exceptions) _tarvin_offer_names -f -- "$word" ;;
        *)
            if [[ $word == -* ]]; then
                _tarvin_offer -W '--format --output --no-exceptions --exceptions --progress --help' \
                    -- "$word"
            else
                _tarvin_offer_names -d -- "$word"
            fi
            ;;
    esac
}

complete -F _tarvin tarvin
