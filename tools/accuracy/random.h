// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

namespace pelmora {

/// Random numbers that are the same with every standard library (SplitMix64).
/// Steele, G. L., Lea, D., Flood, C. H. (2014), OOPSLA '14, 453-472.
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t bits()
    {
        std::uint64_t z = m_state += 0x9e3779b97f4a7c15;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
        z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
        return z ^ (z >> 31);
    }

    /// In [0, 1).
    double uniform() { return double(bits() >> 11) * 0x1p-53; }
    double uniform(double low, double high) { return low + (high - low) * uniform(); }
    /// One of low..high, both included.
    int integer(int low, int high)
    {
        return low + int(bits() % (std::uint64_t(high) - std::uint64_t(low) + 1));
    }
    /// Mean 0, variance 1 (Box and Muller).
    double normal()
    {
        const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform()));
        return radius * std::cos(2.0 * std::numbers::pi * uniform());
    }

private:
    std::uint64_t m_state;
};

} // namespace pelmora
