// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib> // defines __GLIBC__ where it is the C library

/// PELMORA_VECTOR_CLONES compiles a function twice, for AVX2 and for any processor, and picks one
/// at start. Both give the same bits: lanes never change the order of a sum, and no clone may fuse
/// a multiplication with an addition, so there is none for FMA or anything that brings it along.
/// Off where the loader cannot choose, and under sanitizers, which are not up yet when it does.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define PELMORA_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) ||                         \
    __has_feature(memory_sanitizer)
#define PELMORA_SANITIZED
#endif
#endif

#if defined(__x86_64__) && defined(__GLIBC__) && __has_attribute(target_clones) &&                 \
    !defined(PELMORA_SANITIZED) && !defined(PELMORA_NO_VECTOR_CLONES)
#define PELMORA_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define PELMORA_VECTOR_CLONES
#endif

/// Helpers of such functions, so that they are compiled for the clone that calls them.
#define PELMORA_ALWAYS_INLINE inline __attribute__((always_inline))

namespace pelmora {

/// Four doubles that are worked on together; the compiler takes two narrower vectors where the
/// processor has no wider ones. Never an argument or a result by value: how these are passed
/// depends on the processor that a function is compiled for.
typedef double Lanes __attribute__((vector_size(32)));

inline constexpr int lanes = 4;

/// Lanes as they lie among doubles, without any alignment of their own.
struct __attribute__((packed, may_alias)) LanesInMemory
{
    Lanes values;
};

PELMORA_ALWAYS_INLINE LanesInMemory& lanesAt(double* values)
{
    return *reinterpret_cast<LanesInMemory*>(values);
}

PELMORA_ALWAYS_INLINE const LanesInMemory& lanesAt(const double* values)
{
    return *reinterpret_cast<const LanesInMemory*>(values);
}

} // namespace pelmora
