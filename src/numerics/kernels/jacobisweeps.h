// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/alignedrows.h"
#include "numerics/kernels/columnstrips.h"
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

class PanelRotations;

/// What the sweeps of the Jacobi method know beside the matrix.
struct JacobiState
{
    int n;
    double* d; ///< the diagonal
    double* z; ///< what the sweep adds to it
    int sweep = 0;
    double threshold = 0.0;
    int rotations = 0;
    ProgressMeter meter{{.work = Progress::Work::Eigenvalues}};
};

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

/// Rotates a pair of elements, or pairs side by side.
template <typename Elements>
PELMORA_ALWAYS_INLINE void rotatePair(Elements& g, Elements& h, PlaneRotation r)
{
    const Elements g0 = g;
    const Elements h0 = h;
    g = g0 - r.s * (h0 + g0 * r.tau);
    h = h0 + r.s * (g0 - h0 * r.tau);
}

/// The same, the second of each pair in memory.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotatePairs(Lanes& g, double* h, PlaneRotation r)
{
    Lanes inMemory = lanesAt<Lanes>(h).values;
    rotatePair(g, inMemory, r);
    lanesAt<Lanes>(h).values = inMemory;
}

/// The same for as many lanes as @p length has, both of each pair in memory.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotateRows(double* x, double* y, int length, PlaneRotation r)
{
    for (int j = 0; j < length; j += laneCount<Lanes>) {
        Lanes g = lanesAt<Lanes>(x + j).values;
        rotatePairs(g, y + j, r);
        lanesAt<Lanes>(x + j).values = g;
    }
}

// A sweeper holds the matrix, whose diagonal stays 0, and the eigenvectors in the form that its
// sweep needs; vector k belongs to d[k]. Both triangles of the matrix are to be set before the
// first sweep, and the upper one holds after each. isNull() tells a failed allocation (already
// reported). A sweep returns false when the user has cancelled; the sweeper is then of no further
// use.

/// Sweeps rotation by rotation.
class JacobiRowSweeper
{
public:
    explicit JacobiRowSweeper(int n) : m_matrix(n, n), m_vectors(n, n) {}

    bool isNull() const { return m_matrix.isNull() || m_vectors.isNull(); }
    double& element(int i, int j) { return m_matrix[i][j]; }
    double& vectorElement(int k, int i) { return m_vectors[k][i]; }
    bool sweep(JacobiState& state);

private:
    AlignedRows m_matrix;
    AlignedRows m_vectors;
};

/// Sweeps by panels of rotations.
class JacobiBlockSweeper
{
public:
    explicit JacobiBlockSweeper(int n);

    bool isNull() const { return m_matrix.isNull() || m_vectors.isNull() || m_rotations.isNull(); }
    double& element(int i, int j) { return *m_matrix.at(i, j); }
    double& vectorElement(int k, int i) { return *m_vectors.at(k, i); }
    bool sweep(JacobiState& state);

private:
    bool rotateRest(JacobiState& state, const PanelRotations& panel, int found);

    ColumnStrips m_matrix;
    ColumnStrips m_vectors;
    AlignedRows m_rotations;
};

} // namespace pelmora
