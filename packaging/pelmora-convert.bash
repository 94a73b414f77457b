# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2207 # what compgen prints are words

# Completion of pelmora-convert for bash.
_pelmora_convert() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words
    case $before in
    --kind) words="data correlations" ;;
    --separator) words="tab semicolon comma blank" ;;
    --decimal) words="point comma" ;;
    --header) words="yes no" ;;
    --missing) words="none" ;;
    --columns | --skip) return ;;
    --encoding) words="utf-8 utf-16le utf-16be windows-1250 windows-1251 windows-1252 windows-1253" ;;
    *)
        words="-o --output --kind --separator --decimal --header --missing --columns --skip --transpose
            --encoding --labels --report --force --help --version"
        [[ $word == -* && $before != -o && $before != --output && $before != --report ]] || {
            COMPREPLY=($(compgen -f -- "$word"))
            return
        }
        ;;
    esac
    COMPREPLY=($(compgen -W "$words" -- "$word"))
}
complete -o filenames -F _pelmora_convert pelmora-convert
