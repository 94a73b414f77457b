// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The regularised incomplete gamma function by its series below the mean and by its continued
// fraction above (Abramowitz & Stegun (1964), 6.5.29 and 6.5.31; the fraction by Lentz' method).
// What they have in common, x^a exp(-x) / Gamma(a + 1), is written as a deviance: its logarithms,
// each of some 1e5 with many variables, would cancel.

#include "numerics/chisquare.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace pelmora {

namespace {

constexpr double epsilon = std::numeric_limits<double>::epsilon();
/// Either form needs some multiples of the square root of a; this is a last bound.
constexpr int termLimit = 10'000'000;

/// ln Gamma(a + 1) less Stirling's approximation of it.
double stirlingError(double a)
{
    if (a < 15.0)
        return std::lgamma(a + 1.0) - (a + 0.5) * std::log(a) + a -
               0.5 * std::log(2.0 * std::numbers::pi);
    const double s = 1.0 / (a * a);
    return (1.0 / 12 - s * (1.0 / 360 - s * (1.0 / 1260 - s * (1.0 / 1680 - s / 1188)))) / a;
}

/// ln of x^a exp(-x) / Gamma(a + 1).
double lnCommonFactor(double a, double x)
{
    const double distance = (x - a) / a;
    const double deviance =
        std::fabs(distance) < 0.5 ? distance - std::log1p(distance) : distance - std::log(x / a);
    return -a * deviance - 0.5 * std::log(2.0 * std::numbers::pi * a) - stirlingError(a);
}

/// Sum of x^k / ((a + 1) .. (a + k)), k = 0, 1, ..
double series(double a, double x)
{
    double term = 1.0;
    double sum = 1.0;
    for (int k = 1; k < termLimit && term > sum * epsilon; ++k) {
        term *= x / (a + k);
        sum += term;
    }
    return sum;
}

/// 1 / (x + 1 - a - 1 (1 - a) / (x + 3 - a - 2 (2 - a) / (x + 5 - a - ..))), for x > a + 1.
double continuedFraction(double a, double x)
{
    constexpr double tiny = 1e-300;
    double b = x + 1.0 - a;
    double c = 1.0 / tiny;
    double d = 1.0 / b;
    double h = d;
    for (int k = 1; k < termLimit; ++k) {
        const double numerator = -k * (k - a);
        b += 2.0;
        d = numerator * d + b;
        c = b + numerator / c;
        d = 1.0 / (std::fabs(d) < tiny ? tiny : d);
        c = std::fabs(c) < tiny ? tiny : c;
        h *= c * d;
        if (std::fabs(c * d - 1.0) <= epsilon)
            break;
    }
    return h;
}

} // namespace

double lnUpperChiSquare(double x, double degrees)
{
    const double a = 0.5 * degrees;
    const double half = 0.5 * x;
    if (half <= 0.0)
        return 0.0;
    if (half < a + 1.0)
        return std::log1p(-std::exp(lnCommonFactor(a, half)) * series(a, half));
    return lnCommonFactor(a, half) + std::log(a) + std::log(continuedFraction(a, half));
}

} // namespace pelmora
