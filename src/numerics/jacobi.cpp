// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The course of the sweeps; jacobirows.cpp and jacobiblocks.cpp hold the two forms of a sweep,
// which give the same bits. Every element takes part in the rotations of its row and of its column
// in the order of the textbook's loops.

#include "numerics/jacobi.h"

#include "numerics/errorreport.h"
#include "numerics/kernels/alignedrows.h"
#include "numerics/kernels/jacobisweeps.h"
#include "numerics/kernels/nan.h"
#include "numerics/owners.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace pelmora {

namespace {

/// From this order on the blocked sweep is the faster one.
constexpr int blockedOrder = 80;
constexpr int sweepLimit = 500;

/// Only the upper triangle of a is read. The vectors start as its diagonal, on purpose.
void start(JacobiState& state, const double* const* a, double* b)
{
    for (int i = 0; i < state.n; ++i) {
        for (int j = i + 1; j < state.n; ++j)
            state.matrix[i][j] = state.matrix[j][i] = a[i][j];
        state.vectors[i][i] = b[i] = state.d[i] = a[i][i];
        state.z[i] = 0.0;
    }
}

/// Copies back what a sweep in place would have left above the diagonal, and the vectors as
/// columns.
void finish(const JacobiState& state, double** a, double** v)
{
    for (int i = 0; i < state.n; ++i) {
        std::copy_n(state.matrix[i] + i + 1, state.n - i - 1, a[i] + i + 1);
        for (int j = 0; j < state.n; ++j)
            v[j][i] = state.vectors[i][j];
    }
}

enum class Outcome { Converged, NotConverged, Cancelled };

/// Sweeps until all elements above the diagonal are 0.
template <typename Sweep>
Outcome iterate(JacobiState& state, double* b, Sweep sweep)
{
    const int n = state.n;
    while (++state.sweep < sweepLimit) {
        const double sum = offDiagonalSum(state.matrix, n);
        if (sum == 0.0)
            return Outcome::Converged;
        state.meter.progress().sweep = state.sweep;
        state.threshold = state.sweep < 4 ? 0.02 * sum / double(std::int64_t(n) * n) : 0.0;
        const int rotations = state.rotations;
        if (!sweep(state))
            return Outcome::Cancelled;
        for (int i = 0; i < n; ++i) {
            b[i] += state.z[i];
            state.d[i] = b[i];
            state.z[i] = 0.0;
        }
        // A late sweep without a rotation leaves zeros and NaN alone: all later ones would find the
        // same. With NaN among many variables they would take very long to find it.
        if (state.sweep > 4 && state.rotations == rotations)
            return offDiagonalSum(state.matrix, n) == 0.0 ? Outcome::Converged
                                                          : Outcome::NotConverged;
    }
    return Outcome::NotConverged;
}

/// A small matrix is done with before anybody could ask; only many sweeps take their time.
bool sweepSmall(JacobiState& state)
{
    const int rotations = state.rotations;
    sweepByRows(state);
    return state.meter.goOnAfter(3.0 * (state.rotations - rotations) * state.n);
}

} // namespace

double offDiagonalSum(const AlignedRows& matrix, int n)
{
    double sum = 0.0;
    for (int i = 0; i < n - 1; ++i)
        for (int j = i + 1; j < n; ++j)
            sum += std::fabs(matrix[i][j]);
    return sum;
}

int jacobi(double** a, int n, double* d, double** v)
{
    Vector b(n);
    Vector z(n);
    AlignedRows matrix(AlignedRows::padded(n), n);
    AlignedRows vectors(n, n);
    const bool blocked = n >= blockedOrder;
    JacobiBlockSweeper blockSweeper(blocked ? n : 0);
    if (b.isNull() || z.isNull() || matrix.isNull() || vectors.isNull() || blockSweeper.isNull()) {
        fillWithNan(&d, 1, n);
        fillWithNan(v, n, n);
        return 0;
    }
    JacobiState state{n, matrix, vectors, d, z.data()};
    start(state, a, b.data());
    const Outcome outcome =
        blocked ? iterate(state, b.data(), [&](JacobiState& s) { return blockSweeper.sweep(s); })
                : iterate(state, b.data(), sweepSmall);
    finish(state, a, v);
    if (outcome == Outcome::NotConverged)
        reportError("Error: no convergence in finding eigen values.");
    return state.rotations;
}

void sort_eigenpairs(double* d, double** v, int n)
{
    for (int i = 0; i < n - 1; ++i) {
        int k = i;
        double p = d[i];
        for (int j = i + 1; j < n; ++j)
            if (d[j] >= p) {
                k = j;
                p = d[j];
            }
        if (k == i)
            continue;
        d[k] = d[i];
        d[i] = p;
        for (int j = 0; j < n; ++j)
            std::swap(v[j][i], v[j][k]);
    }
}

} // namespace pelmora
