# bash completion for pelmora-large -*- shell-script -*-
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

_pelmora_large() {
    local cur prev options="--scheduler --workers --range --program --quiet --help"
    cur=${COMP_WORDS[COMP_CWORD]}
    prev=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "correlate score --help --version" -- "$cur")
        return
    fi
    case $prev in
    --page)
        mapfile -t COMPREPLY < <(compgen -W "pelmora varimax initial" -- "$cur")
        return
        ;;
    --precision)
        mapfile -t COMPREPLY < <(compgen -W "0 1 2 3 4 5 6 7 8 9" -- "$cur")
        return
        ;;
    --scheduler | --workers | --range)
        return
        ;;
    esac
    compopt -o filenames
    if [[ $cur != -* ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    elif [ "${COMP_WORDS[1]}" = score ]; then
        mapfile -t COMPREPLY < <(compgen -W "$options -c --page --precision -o --join" -- "$cur")
    else
        mapfile -t COMPREPLY < <(compgen -W "$options -o" -- "$cur")
    fi
}
complete -F _pelmora_large pelmora-large
