# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# cmake -D "PROGRAMS=<program>;..." -P comparebits.cmake: all must print the same.
foreach(program IN LISTS PROGRAMS)
    execute_process(COMMAND ${program} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    message("${program}\n${output}")
    if(NOT DEFINED expected)
        set(expected "${output}")
    elseif(NOT output STREQUAL expected)
        message(SEND_ERROR "${program}: other bits than those of the first program")
    endif()
endforeach()
