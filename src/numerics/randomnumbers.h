// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <random>

namespace pelmora {

/// Random numbers that are the same on every machine, from start value 1 on. One engine serves all
/// three distributions.
class RandomNumbers
{
public:
    /// In steps of 2^-53, 0 included, 1 not.
    double uniform();
    /// By the polar method, which makes two: the second is kept for the next call, whatever comes
    /// between. Marsaglia, G. & Bray, T. A. (1964), SIAM Review 6, 260-264.
    double normal();
    /// Chi-square with @p degrees degrees of freedom, at least 1.
    /// Marsaglia, G. & Tsang, W. W. (2000), ACM Trans. Math. Softw. 26, 363-372.
    double chiSquare(int degrees);

private:
    std::mt19937_64 m_engine{1};
    double m_kept = 0.0;
    bool m_hasKept = false;
};

} // namespace pelmora
