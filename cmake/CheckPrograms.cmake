# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# cmake -D PROGRAMS=<file>;... -D HARDENED=<bool> -P CheckPrograms.cmake: checks headers and symbols of programs. None
# may look for libraries in the current folder, or in one that depends on it; a release build is hardened.
find_program(READELF readelf REQUIRED)
set(faults "")
set(any_stack_protector FALSE)
set(any_checked_call FALSE)

foreach(program IN LISTS PROGRAMS)
    if(NOT EXISTS ${program})
        # The tools need not be built, what users get must be.
        if(program MATCHES "/src/")
            string(APPEND faults "${program} is not there\n")
        endif()
        continue()
    endif()
    execute_process(COMMAND ${READELF} --wide --file-header --program-headers --dynamic ${program}
        OUTPUT_VARIABLE elf COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${READELF} --wide --dyn-syms ${program}
        OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)

    string(REGEX MATCHALL "\\((RUNPATH|RPATH)\\)[^\n]*\\[[^\n]*\\]" paths "${elf}")
    foreach(path IN LISTS paths)
        string(REGEX REPLACE "^.*\\[(.*)\\]$" ":\\1:" path "${path}")
        # Everything that is absolute or begins at the program, and no empty entry in between.
        string(REGEX REPLACE ":((/|\\$ORIGIN)[^:]*:)+" "" rest "${path}")
        if(NOT rest STREQUAL "")
            string(APPEND faults "${program} looks for libraries in ${path}\n")
        endif()
    endforeach()

    if(HARDENED)
        if(NOT elf MATCHES "FLAGS_1[^\n]*PIE" AND NOT elf MATCHES "Position-Independent Executable")
            string(APPEND faults "${program} is not position independent\n")
        endif()
        if(NOT elf MATCHES "GNU_RELRO" OR NOT elf MATCHES "BIND_NOW|FLAGS_1[^\n]*NOW")
            string(APPEND faults "${program} resolves its symbols lazily\n")
        endif()
        if(symbols MATCHES "__(mem[a-z]*|str[a-z]*|v?[fs]n?printf)_chk")
            set(any_checked_call TRUE)
        endif()
        if(symbols MATCHES "__stack_chk_fail")
            set(any_stack_protector TRUE)
        elseif(program MATCHES "/pelmora[^/]*$")
            string(APPEND faults "${program} has no stack protector\n")
        endif()
    endif()
endforeach()

if(HARDENED AND NOT (any_stack_protector AND any_checked_call))
    string(APPEND faults "no program has a stack protector, or none a checked call of the C library\n")
endif()
if(faults)
    message(FATAL_ERROR "${faults}")
endif()
