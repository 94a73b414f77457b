// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/alignedrows.h"
#include "numerics/kernels/lanes.h"
#include "numerics/progress.h"

#include <cmath>

namespace pelmora {

/// A rotation of a plane of coordinates, as it changes a pair of elements.
struct PlaneRotation
{
    double s;   ///< the sine
    double tau; ///< s / (1 + c) with the cosine c
};

/// What the sweeps of the Jacobi method work on.
struct JacobiState
{
    int n;
    AlignedRows& matrix;  ///< the whole symmetric matrix, its diagonal 0
    AlignedRows& vectors; ///< row k is the eigenvector of d[k]
    double* d;            ///< the diagonal
    double* z;            ///< what the sweep adds to it
    int sweep = 0;
    double threshold = 0.0;
    int rotations = 0;
    ProgressMeter meter{{.work = Progress::Work::Eigenvalues}};
};

/// The sum of the absolute values above the diagonal.
double offDiagonalSum(const AlignedRows& matrix, int n);

/// True when adding x leaves y as it is.
PELMORA_ALWAYS_INLINE bool isNegligible(double x, double y)
{
    return x + y == y;
}

/// True when element g of the pair is to be dropped without a rotation.
PELMORA_ALWAYS_INLINE bool isDropped(const JacobiState& state, double g, int ip, int iq)
{
    return state.sweep > 4 && isNegligible(g, state.d[ip]) && isNegligible(g, state.d[iq]);
}

/// The tangent of the smaller of the two angles that make element g vanish, h being the difference
/// of the two diagonal elements.
PELMORA_ALWAYS_INLINE double rotationTangent(double g, double h)
{
    if (h == 0.0)
        return 1.0;
    if (isNegligible(g, h))
        return g / h;
    const double theta = h / (2.0 * g);
    // No branch: the sign is unpredictable. -0 counts as positive.
    const double sign = std::copysign(1.0, theta + 0.0);
    return sign / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
}

/// The rotation by the angle with tangent @p t.
PELMORA_ALWAYS_INLINE PlaneRotation planeRotation(double t)
{
    const double c = 1.0 / std::sqrt(t * t + 1.0);
    const double s = t * c;
    return {s, s / (1.0 + c)};
}

/// The rotation that makes element g zero. Updates the diagonal and the count; the rows are left to
/// the caller.
PELMORA_ALWAYS_INLINE PlaneRotation startRotation(JacobiState& state, double g, int ip, int iq)
{
    const double t = rotationTangent(g, state.d[iq] - state.d[ip]);
    const double shift = t * g;
    state.z[ip] -= shift;
    state.z[iq] += shift;
    state.d[ip] -= shift;
    state.d[iq] += shift;
    ++state.rotations;
    return planeRotation(t);
}

/// Rotates a pair of elements.
PELMORA_ALWAYS_INLINE void rotatePair(double& g, double& h, PlaneRotation r)
{
    const double g0 = g;
    const double h0 = h;
    g = g0 - r.s * (h0 + g0 * r.tau);
    h = h0 + r.s * (g0 - h0 * r.tau);
}

/// Rotates pairs side by side, the second of each in memory.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotatePairs(Lanes& g, double* h, PlaneRotation r)
{
    const Lanes g0 = g;
    const Lanes h0 = lanesAt<Lanes>(h).values;
    g = g0 - r.s * (h0 + g0 * r.tau);
    lanesAt<Lanes>(h).values = h0 + r.s * (g0 - h0 * r.tau);
}

/// Copies a row, from column @p first on, into the column that mirrors it.
PELMORA_ALWAYS_INLINE void mirrorRow(JacobiState& state, int row, int first)
{
    const double* from = state.matrix[row];
    double* to = state.matrix[first] + row;
    const std::ptrdiff_t stride = state.matrix.stride();
    for (int j = first, n = state.n; j < n; ++j, to += stride)
        *to = from[j];
}

/// Brings the upper triangle up to date at the end of a sweep.
PELMORA_ALWAYS_INLINE void mirrorLowerTriangle(JacobiState& state)
{
    for (int i = 0; i < state.n; ++i)
        for (int j = 0; j < i; ++j)
            state.matrix[j][i] = state.matrix[i][j];
}

/// One sweep, rotation by rotation.
void sweepByRows(JacobiState& state);

/// One sweep by blocks of rotations.
class JacobiBlockSweeper
{
public:
    explicit JacobiBlockSweeper(int n);

    bool isNull() const { return m_rotations.isNull(); }
    /// False when the user has cancelled; the state is then of no further use.
    bool sweep(JacobiState& state);

private:
    AlignedRows m_rotations;
};

} // namespace pelmora
