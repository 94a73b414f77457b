// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <utility>

/// Whether kernels are also compiled for processors with AVX2.
#if defined(__x86_64__) && !defined(PELMORA_NO_WIDE_KERNELS)
#define PELMORA_WIDE_KERNELS 1
#else
#define PELMORA_WIDE_KERNELS 0
#endif

/// For the parts of a kernel: inlined, they take part in the instruction set of the kernel that
/// calls them; a function of its own would be compiled for the oldest processor.
#define PELMORA_ALWAYS_INLINE inline __attribute__((always_inline))

namespace pelmora {

/// SIMD vectors of doubles. Never an argument or a result by value: how these are
/// passed depends on the processor that a function is compiled for.
typedef double TwoLanes __attribute__((vector_size(16)));
typedef double FourLanes __attribute__((vector_size(32)));

template <typename Lanes>
inline constexpr int laneCount = sizeof(Lanes) / sizeof(double);

/// Lanes as they lie among doubles, without any alignment of their own.
template <typename Lanes>
struct __attribute__((packed, may_alias)) LanesInMemory
{
    Lanes values;
};

template <typename Lanes>
PELMORA_ALWAYS_INLINE LanesInMemory<Lanes>& lanesAt(double* values)
{
    return *reinterpret_cast<LanesInMemory<Lanes>*>(values);
}

template <typename Lanes>
PELMORA_ALWAYS_INLINE const LanesInMemory<Lanes>& lanesAt(const double* values)
{
    return *reinterpret_cast<const LanesInMemory<Lanes>*>(values);
}

/// Transposes in place.
PELMORA_ALWAYS_INLINE void transpose(TwoLanes (&square)[2])
{
    const TwoLanes a = square[0];
    const TwoLanes b = square[1];
    square[0] = __builtin_shufflevector(a, b, 0, 2);
    square[1] = __builtin_shufflevector(a, b, 1, 3);
}

PELMORA_ALWAYS_INLINE void transpose(FourLanes (&square)[4])
{
    const auto& [a, b, c, d] = square;
    const FourLanes evenAB = __builtin_shufflevector(a, b, 0, 4, 2, 6);
    const FourLanes oddAB = __builtin_shufflevector(a, b, 1, 5, 3, 7);
    const FourLanes evenCD = __builtin_shufflevector(c, d, 0, 4, 2, 6);
    const FourLanes oddCD = __builtin_shufflevector(c, d, 1, 5, 3, 7);
    square[0] = __builtin_shufflevector(evenAB, evenCD, 0, 1, 4, 5);
    square[1] = __builtin_shufflevector(oddAB, oddCD, 0, 1, 4, 5);
    square[2] = __builtin_shufflevector(evenAB, evenCD, 2, 3, 6, 7);
    square[3] = __builtin_shufflevector(oddAB, oddCD, 2, 3, 6, 7);
}

#if PELMORA_WIDE_KERNELS
inline const bool processorHasWideLanes = __builtin_cpu_supports("avx2");

template <typename Kernel, typename... Arguments>
__attribute__((target("avx2"))) auto runWide(Arguments&&... arguments)
{
    return Kernel::template run<FourLanes>(std::forward<Arguments>(arguments)...);
}
#endif

/// Runs a kernel, a class with a static function template run<Lanes>(), with the lanes that the
/// processor is good at: four with AVX2, two anywhere else. Both give the same bits, for lanes
/// never change the order of a sum. Plain loops may ignore Lanes and still gain from being compiled
/// for the processor. No kernel is compiled for FMA, on purpose, nor for an instruction set that
/// includes it: a fused multiply-add rounds once instead of twice.
template <typename Kernel, typename... Arguments>
auto runKernel(Arguments&&... arguments)
{
#if PELMORA_WIDE_KERNELS
    if (processorHasWideLanes)
        return runWide<Kernel>(std::forward<Arguments>(arguments)...);
#endif
    return Kernel::template run<TwoLanes>(std::forward<Arguments>(arguments)...);
}

} // namespace pelmora
