# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# The options of every target of ours. Results must not depend on whether a compiler fuses
# operations, so contraction is off everywhere, not only in the numerics.
function(pelmora_set_options target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow
        -ffp-contract=off)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
    pelmora_harden(${target})
    if(PELMORA_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# Ninja looks at the objects before the forms are made anew, so a source must name its form, or the
# first build after a change would miss it.
function(pelmora_depend_on_forms)
    foreach(source IN LISTS ARGN)
        get_filename_component(name ${source} NAME_WE)
        set(form ${PROJECT_SOURCE_DIR}/forms/${name}.ui)
        if(EXISTS ${form})
            set_property(SOURCE ${source} APPEND PROPERTY OBJECT_DEPENDS ${form})
        endif()
    endforeach()
endfunction()

# pelmora_add_library(<folder> SOURCES <file>... [LINK <target>...])
# One static library per folder of src; includes are written from there: "numerics/jacobi.h".
function(pelmora_add_library folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_library(pelmora_${folder} STATIC ${arg_SOURCES})
    pelmora_depend_on_forms(${arg_SOURCES})
    target_include_directories(pelmora_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(pelmora_${folder} PUBLIC ${arg_LINK})
    pelmora_set_options(pelmora_${folder})
endfunction()

# pelmora_add_test(<name> SOURCES <file>... [LINK <target>...])
# A Qt Test executable, run off-screen; the test's folder mirrors the folder of src it tests.
function(pelmora_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE Qt6::Test ${arg_LINK})
    target_compile_definitions(${name} PRIVATE
        PELMORA_SOURCE_DIR="${PROJECT_SOURCE_DIR}" PELMORA_DATA_DIR="${PROJECT_SOURCE_DIR}/data")
    pelmora_set_options(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8" TIMEOUT 300)
endfunction()
