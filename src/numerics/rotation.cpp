// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/rotation.h"

#include "numerics/kernels/alignedrows.h"
#include "numerics/kernels/pairangles.h"
#include "numerics/kernels/rotationdriver.h"
#include "numerics/kernels/rotationkernels.h"
#include "numerics/kernels/rotationsweeps.h"
#include "numerics/progress.h"

#include <cmath>
#include <tuple>

namespace pelmora {

namespace {

/// Columns j and k as the kernels take them.
AlignedRows twoColumns(const double* const* l, int j, int k, int p)
{
    AlignedRows columns(2, p);
    for (int i = 0; i < p && !columns.isNull(); ++i) {
        columns[0][i] = l[i][j];
        columns[1][i] = l[i][k];
    }
    return columns;
}

} // namespace

double column_criterion(const double* const* l, int j, int p)
{
    const AlignedRows columns = twoColumns(l, j, j, p);
    return columns.isNull() ? std::nan("") : columnCriteria(columns[0], columns[1], p).x;
}

void pair_angles(const double* const* l, int j, int k, int p, double& angle1, double& angle2)
{
    const AlignedRows columns = twoColumns(l, j, k, p);
    angle1 = angle2 = std::nan("");
    if (!columns.isNull())
        std::tie(angle1, angle2) =
            stationaryAngles(pairTangents(pairSums(columns[0], columns[1], p), p));
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
