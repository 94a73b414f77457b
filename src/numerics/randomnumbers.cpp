// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/randomnumbers.h"

#include <cmath>

namespace pelmora {

double RandomNumbers::uniform()
{
    return double(m_engine() >> 11) * 0x1p-53;
}

double RandomNumbers::normal()
{
    if (m_hasKept) {
        m_hasKept = false;
        return m_kept;
    }
    double a = 0.0;
    double b = 0.0;
    double s = 0.0;
    do {
        a = 2.0 * uniform() - 1.0;
        b = 2.0 * uniform() - 1.0;
        s = a * a + b * b;
    } while (!(s > 0.0 && s < 1.0));
    const double factor = std::sqrt(-2.0 * std::log(s) / s);
    m_kept = b * factor;
    m_hasKept = true;
    return a * factor;
}

double RandomNumbers::chiSquare(int degrees)
{
    if (degrees == 1) {
        const double x = normal();
        return x * x;
    }
    const double d = degrees / 2.0 - 1.0 / 3.0;
    const double c = 1.0 / std::sqrt(9.0 * d);
    for (;;) {
        const double x = normal();
        double v = 1.0 + c * x;
        if (v <= 0.0)
            continue;
        v = v * v * v;
        // Where uniform() is 0 its logarithm is minus infinity, and the value is accepted.
        if (std::log(uniform()) < x * x / 2.0 + d - d * v + d * std::log(v))
            return 2.0 * d * v;
    }
}

} // namespace pelmora
