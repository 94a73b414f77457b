# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# Options that make a fault harder to exploit by a crafted file, for what users get. They depend on the build type
# alone, so that every way of building has them.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# qt_standard_project_setup() sets an RPATH beside the program, and CMake reserves its length in the build tree with
# empty entries, which the loader takes for the current folder. Our libraries are static and need none.
set(CMAKE_INSTALL_RPATH "")

# The sanitizers have checks of their own, and without optimisation there is nothing to check.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize|-O0")
    set(PELMORA_HARDENED 0)
else()
    set(PELMORA_HARDENED "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
endif()
set(pelmora_fortify 2)
if((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
        OR CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    set(pelmora_fortify 3)
endif()

function(pelmora_harden target)
    target_compile_options(${target} PRIVATE
        "$<${PELMORA_HARDENED}:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=${pelmora_fortify}>")
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        target_link_options(${target} PRIVATE "$<${PELMORA_HARDENED}:LINKER:-z,relro,-z,now>")
        set_property(GLOBAL APPEND PROPERTY PELMORA_PROGRAMS $<TARGET_FILE:${target}>)
    endif()
endfunction()

# Looks at all programs that are built; to be called when all are known.
function(pelmora_add_program_check)
    get_property(programs GLOBAL PROPERTY PELMORA_PROGRAMS)
    add_test(NAME programs_are_hardened
        COMMAND ${CMAKE_COMMAND} -D "PROGRAMS=${programs}" -D HARDENED=${PELMORA_HARDENED}
            -P ${PROJECT_SOURCE_DIR}/cmake/CheckPrograms.cmake)
endfunction()
