# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# The numerical kernels and their plain forms alike: the loops are worth -O3, and a target with fused
# operations, should the user's flags bring one, must not leak in, since a fused sum ends elsewhere.
function(pelmora_set_kernel_flags target)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo>:-O3>)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        target_compile_options(${target} PRIVATE -mno-fma)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Vectors are passed between inlined functions only, so no convention can change.
        target_compile_options(${target} PRIVATE -Wno-psabi)
    endif()
endfunction()
