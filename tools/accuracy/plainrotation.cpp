// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plainrotation.h"

#include "rotationproblem.h"

#include "numerics/rotation.h"
#include "plain/numerics.h"

#include <cmath>

namespace pelmora {

PlainRotation rotatePlainly(Matrix& l, Matrix& b, int m, int method, int bound)
{
    const auto sweep = [&](int angleRule) {
        return plain::rotation_sweep(l.rowPointers(), b.rowPointers(), m, l.rows(), angleRule);
    };
    const double first = sweep(method);
    double previous = sweep(method);
    PlainRotation result{std::fabs(first - previous) <= 1e-12, 2, 0.0L, 0.0L};
    while (!result.ended && result.sweeps < bound) {
        if (result.sweeps == bound - 1)
            result.lastButOne = relativeCriterion(l, m);
        // A method that is neither of the two keeps the nearest angle: a plain sweep.
        const double criterion = sweep(NoRotation);
        result.ended = !(std::fabs(previous - criterion) > 1e-12);
        previous = criterion;
        ++result.sweeps;
    }
    result.last = relativeCriterion(l, m);
    return result;
}

long double meanSquareCommunality(const Matrix& l, int m)
{
    long double sum = 0.0L;
    for (int i = 0; i < l.rows(); ++i) {
        long double communality = 0.0L;
        for (int j = 0; j < m; ++j)
            communality += static_cast<long double>(l[i][j]) * l[i][j];
        sum += communality * communality;
    }
    return sum / l.rows();
}

long double relativeCriterion(const Matrix& l, int m)
{
    return totalCriterion(l, m) / meanSquareCommunality(l, m);
}

} // namespace pelmora
