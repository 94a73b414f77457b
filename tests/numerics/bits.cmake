# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

include(${PROJECT_SOURCE_DIR}/src/numerics/kernelflags.cmake)
get_target_property(kernels pelmora_numerics SOURCES)
list(TRANSFORM kernels PREPEND ${PROJECT_SOURCE_DIR}/src/numerics/)
file(GLOB bits_headers CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/src/numerics/*.h ${PROJECT_SOURCE_DIR}/src/numerics/kernels/*.h
    ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
set(bits_sources ${CMAKE_CURRENT_SOURCE_DIR}/bits.cpp ${kernels})
set(bits_programs)

# pelmora_add_bits(<name> <option>...): built like everything else, but for the options.
function(pelmora_add_bits name)
    add_executable(${name} ${bits_sources})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF)
    pelmora_set_options(${name})
    pelmora_set_kernel_flags(${name})
    target_compile_options(${name} PRIVATE ${ARGN})
    set(bits_programs ${bits_programs} $<TARGET_FILE:${name}> PARENT_SCOPE)
endfunction()

# pelmora_add_foreign_bits(<name> <option>...): built by the other compiler.
function(pelmora_add_foreign_bits name)
    add_custom_command(OUTPUT ${name}
        COMMAND ${PELMORA_OTHER_COMPILER} -std=c++20 -ffp-contract=off -Wno-psabi ${ARGN}
            -I ${PROJECT_SOURCE_DIR}/src ${bits_sources} -o ${name}
        DEPENDS ${bits_sources} ${bits_headers}
        COMMENT "Building ${name} by another compiler"
        VERBATIM)
    add_custom_target(${name}_program ALL DEPENDS ${name})
    set(bits_programs ${bits_programs} ${CMAKE_CURRENT_BINARY_DIR}/${name} PARENT_SCOPE)
endfunction()

pelmora_add_bits(bits_optimised -O3)
pelmora_add_bits(bits_portable -O3 -DPELMORA_NO_WIDE_KERNELS)
pelmora_add_bits(bits_unoptimised -O0 -U_FORTIFY_SOURCE)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    find_program(PELMORA_OTHER_COMPILER NAMES clang++ clang++-14 clang++-18)
else()
    find_program(PELMORA_OTHER_COMPILER NAMES g++)
endif()
if(PELMORA_OTHER_COMPILER)
    pelmora_add_foreign_bits(bits_other_compiler -O3)
    pelmora_add_foreign_bits(bits_other_compiler_unoptimised -O0)
endif()

add_test(NAME numerics_bits
    COMMAND ${CMAKE_COMMAND} -D "PROGRAMS=${bits_programs}"
        -P ${CMAKE_CURRENT_SOURCE_DIR}/comparebits.cmake)
