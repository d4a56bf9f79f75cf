# Completion of the options and folders of tarvin-duplicate-file-remover in bash.

_tarvin_duplicate_file_remover() {
    local word=${COMP_WORDS[COMP_CWORD]} i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} == -- ]]; then
            break
        fi
    done
    if ((i == COMP_CWORD)) && [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--help --version' -- "$word")
        return
    fi
    # With "filenames", bash quotes the names itself.
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$word")
}

complete -F _tarvin_duplicate_file_remover tarvin-duplicate-file-remover
