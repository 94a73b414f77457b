# bash completion for pelmora-batch -*- shell-script -*-
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# One of the words, or a list of them separated by commas.
_pelmora_batch_list() {
    local before=
    [[ $2 != *,* ]] || before=${2%,*},
    mapfile -t COMPREPLY < <(compgen -P "$before" -W "$1" -- "${2##*,}")
    compopt -o nospace
}

_pelmora_batch() {
    local cur prev options
    cur=${COMP_WORDS[COMP_CWORD]}
    prev=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "analyse correlate sums merge score --help --version" -- "$cur")
        return
    fi
    case $prev in
    --rotation) _pelmora_batch_list "pelmora varimax initial" "$cur" && return ;;
    --write) _pelmora_batch_list "cor eig vec ini loadings scores pairs adequacy diagram" "$cur" && return ;;
    --factors) options="eigenvalues parallel" ;;
    --diagram) options="png pdf svg" ;;
    --page) options="pelmora varimax initial" ;;
    --precision) options="0 1 2 3 4 5 6 7 8 9" ;;
    --cases | --from | --to | --columns | --lines-before) return ;;
    --out)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$cur")
        return
        ;;
    esac
    if [ -z "$options" ] && [[ $cur == -* ]]; then
        case ${COMP_WORDS[1]} in
        analyse) options="--correlations --row-wise --cases --factors --rotation --precision --out --write --diagram
            --json --report --quiet --help --version" ;;
        score) options="-c --page --precision -o --from --to --lines-before --help" ;;
        sums) options="-o --from --to --columns --lines-before --help" ;;
        *) options="-o --help" ;;
        esac
    fi
    if [ -n "$options" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    fi
}
complete -F _pelmora_batch pelmora-batch
