// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

namespace pelmora {

/// Powers of ten that are doubles without rounding. An integer of up to 2^53 divided by one of them
/// is rounded once and therefore correctly.
/// Clinger, W. D. (1990), How to read floating point numbers accurately, PLDI '90, 92-101.
inline constexpr std::array<double, 23> exactPowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

inline constexpr std::uint64_t largestExactMantissa = std::uint64_t(1) << 53;

} // namespace pelmora
