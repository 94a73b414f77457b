// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <utility>

namespace pelmora {

/// The sums over the rows of a pair of columns x, y, with u = x^2 - y^2 and w = x y, that its
/// angles are made of.
struct PairSums
{
    double A; ///< of u
    double W; ///< of w
    double C; ///< of u w
    double E; ///< of -u^2 / 2 + 2 w^2
};

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

inline PairTangents pairTangents(const PairSums& sums, int p)
{
    const auto [A, W, C, E] = sums;
    const double D = A * W / p - C;
    const double b = 0.5 * (-(A * A / (2.0 * p) + -2.0 * W * W / p + E) / D);
    // The quotient is -1; it is NaN for D == 0 and makes both angles so. A finished pair stays put
    // since b - q cancels to exactly 0, on purpose: a numerically stabler form would not.
    return {b, std::sqrt(b * b - -D / D)};
}

/// Both stationary angles, the one nearest to zero first.
inline std::pair<double, double> stationaryAngles(const PairSums& sums, int p)
{
    const auto [b, q] = pairTangents(sums, p);
    const double minus = 0.5 * std::atan(b - q);
    const double plus = 0.5 * std::atan(b + q);
    return std::fabs(minus) > std::fabs(plus) ? std::pair(plus, minus) : std::pair(minus, plus);
}

/// The first of both angles. Mostly the sign of b tells which one that is, and one arc tangent will
/// do: the two then differ by much more than its error.
inline double nearestAngle(const PairSums& sums, int p)
{
    const auto [b, q] = pairTangents(sums, p);
    const double size = std::fabs(b);
    if (size > 1e-3 && size < 1e100)
        return 0.5 * std::atan(b < 0.0 ? b + q : b - q);
    return stationaryAngles(sums, p).first;
}

} // namespace pelmora
