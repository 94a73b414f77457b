// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/rotation.h"

#include "numerics/kernels/pairangles.h"
#include "numerics/kernels/rotationdriver.h"
#include "numerics/kernels/rotationsweeps.h"
#include "numerics/progress.h"

#include <cmath>
#include <cstdint>
#include <tuple>

namespace pelmora {

double column_criterion(const double* const* l, int j, int p)
{
    double squares = 0.0;
    double fourths = 0.0;
    for (int i = 0; i < p; ++i) {
        const double square = l[i][j] * l[i][j];
        squares += square;
        fourths += square * square;
    }
    return fourths / p - squares * squares / double(std::int64_t(p) * p);
}

void pair_angles(const double* const* l, int j, int k, int p, double& angle1, double& angle2)
{
    PairSums sums{};
    for (int i = 0; i < p; ++i) {
        const double x = l[i][j];
        const double y = l[i][k];
        const double u = x * x - y * y;
        const double w = x * y;
        sums.A += u;
        sums.W += w;
        sums.C += u * w;
        sums.E += -0.5 * (u * u) + w * (w + w);
    }
    std::tie(angle1, angle2) = pairAngles(sums, p);
}

double rotation_sweep(double** l, double** b, int m, int p, int method)
{
    RotationSweeps sweeps(l, b, m, p, method);
    if (sweeps.isNull())
        return std::nan("");
    const double criterion = sweeps.methodAwareSweep();
    if (!isCancelled())
        sweeps.putBack();
    return criterion;
}

void rotate(double** l, double** b, int m, int p, int method)
{
    if (m <= 1)
        return;
    RotationSweeps sweeps(l, b, m, p, method);
    if (sweeps.isNull())
        return;
    driveRotation(sweeps, m, p);
    if (!isCancelled())
        sweeps.putBack();
}

} // namespace pelmora
