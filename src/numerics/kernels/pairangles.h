// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/lanes.h"

#include <cmath>
#include <utility>

namespace pelmora {

/// The sums over the rows of a pair of columns x, y, with u = x^2 - y^2 and w = x y, that its
/// angles are made of. Real is a number, or a vector with a pair in each lane.
template <typename Real>
struct SumsOfPairs
{
    Real A; ///< of u
    Real W; ///< of w
    Real C; ///< of u w
    Real E; ///< of -u^2 / 2 + 2 w^2
};

using PairSums = SumsOfPairs<double>;

/// (b - q) and (b + q) are the tangents of twice the stationary angles.
///
/// A rotation by phi makes
///
///     u' = u cos(2 phi) + 2 w sin(2 phi),  w' = w cos(2 phi) - u / 2 sin(2 phi)
///
/// Since x^4 + y^4 = ((x^2 + y^2)^2 + u^2) / 2, the pair's criterion is, but for a constant,
///
///     (sum(u'^2) / p - sum(u')^2 / p^2) / 2
///
/// and du' / d(2 phi) = 2 w', so it is stationary where D' = sum(u') sum(w') / p - sum(u' w') = 0.
/// Put in, D' = D cos(4 phi) - sin(4 phi) F / 2 with D = A W / p - C and
/// F = A^2 / (2 p) - 2 W^2 / p + E. With b = -F / (2 D) that is tan(4 phi) = -1 / b, the equation
/// of Kaiser (1958), whose v is 2 w here; and t = tan(2 phi) is a root of t^2 - 2 b t - 1 = 0. The
/// two roots have the product -1, so the angles are 45 degrees apart.
struct PairTangents
{
    double b;
    double q;
};

template <typename Real>
PELMORA_ALWAYS_INLINE void findBAndSquareOfQ(const SumsOfPairs<Real>& sums, int p, Real& b,
                                             Real& squareOfQ)
{
    const auto& [A, W, C, E] = sums;
    const Real D = A * W / double(p) - C;
    b = 0.5 * (-(A * A / (2.0 * p) + -2.0 * W * W / double(p) + E) / D);
    // The quotient is -1; it is NaN for D == 0 and makes both angles so. A finished pair stays put
    // since b - q cancels to exactly 0, on purpose: a numerically stabler form would not.
    squareOfQ = b * b - -D / D;
}

inline PairTangents pairTangents(const PairSums& sums, int p)
{
    PairTangents tangents;
    findBAndSquareOfQ(sums, p, tangents.b, tangents.q);
    tangents.q = std::sqrt(tangents.q);
    return tangents;
}

/// Both stationary angles, the one nearest to zero first.
inline std::pair<double, double> stationaryAngles(const PairTangents& tangents)
{
    const auto [b, q] = tangents;
    const double minus = 0.5 * std::atan(b - q);
    const double plus = 0.5 * std::atan(b + q);
    return std::fabs(minus) > std::fabs(plus) ? std::pair(plus, minus) : std::pair(minus, plus);
}

/// The first of both angles. Mostly the sign of b tells which one that is, and one arc tangent will
/// do: the two then differ by much more than its error.
inline double nearestAngle(const PairTangents& tangents)
{
    const auto [b, q] = tangents;
    const double size = std::fabs(b);
    if (size > 1e-3 && size < 1e100)
        return 0.5 * std::atan(b < 0.0 ? b + q : b - q);
    return stationaryAngles(tangents).first;
}

} // namespace pelmora
