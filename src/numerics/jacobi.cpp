// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The course of the sweeps; jacobirows.cpp and jacobiblocks.cpp hold the two forms of a sweep,
// which give the same bits. Every element takes part in the rotations of its row and of its column
// in the order of the textbook's loops.

#include "numerics/jacobi.h"

#include "numerics/errorreport.h"
#include "numerics/kernels/jacobisweeps.h"
#include "numerics/kernels/nan.h"
#include "numerics/owners.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace pelmora {

namespace {

/// From this order on the blocked sweep is the faster one.
constexpr int blockedOrder = 150;
constexpr int sweepLimit = 500;

/// Only the upper triangle of a is read. The vectors start as its diagonal, on purpose.
template <typename Sweeper>
void start(Sweeper& sweeper, const double* const* a, const JacobiState& state, double* b)
{
    for (int i = 0; i < state.n; ++i) {
        for (int j = i + 1; j < state.n; ++j)
            sweeper.element(i, j) = sweeper.element(j, i) = a[i][j];
        sweeper.vectorElement(i, i) = b[i] = state.d[i] = a[i][i];
        state.z[i] = 0.0;
    }
}

/// Copies back what a sweep in place would have left above the diagonal, and the vectors as
/// columns.
template <typename Sweeper>
void finish(Sweeper& sweeper, int n, double** a, double** v)
{
    for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j < n; ++j)
            a[i][j] = sweeper.element(i, j);
        for (int j = 0; j < n; ++j)
            v[j][i] = sweeper.vectorElement(i, j);
    }
}

/// The sum of the absolute values above the diagonal.
template <typename Sweeper>
double offDiagonalSum(Sweeper& sweeper, int n)
{
    double sum = 0.0;
    for (int i = 0; i < n - 1; ++i)
        for (int j = i + 1; j < n; ++j)
            sum += std::fabs(sweeper.element(i, j));
    return sum;
}

enum class Outcome { Converged, NotConverged, Cancelled };

/// Sweeps until all elements above the diagonal are 0.
template <typename Sweeper>
Outcome iterate(Sweeper& sweeper, JacobiState& state, double* b)
{
    const int n = state.n;
    while (++state.sweep < sweepLimit) {
        const double sum = offDiagonalSum(sweeper, n);
        if (sum == 0.0)
            return Outcome::Converged;
        state.meter.progress().sweep = state.sweep;
        state.threshold = state.sweep < 4 ? 0.02 * sum / double(std::int64_t(n) * n) : 0.0;
        const int rotations = state.rotations;
        if (!sweeper.sweep(state))
            return Outcome::Cancelled;
        for (int i = 0; i < n; ++i) {
            b[i] += state.z[i];
            state.d[i] = b[i];
            state.z[i] = 0.0;
        }
        // A late sweep without a rotation leaves zeros and NaN alone: all later ones would find the
        // same. With NaN among many variables they would take very long to find it.
        if (state.sweep > 4 && state.rotations == rotations)
            return offDiagonalSum(sweeper, n) == 0.0 ? Outcome::Converged : Outcome::NotConverged;
    }
    return Outcome::NotConverged;
}

template <typename Sweeper>
int decompose(double** a, int n, double* d, double** v)
{
    Vector b(n);
    Vector z(n);
    Sweeper sweeper(n);
    if (b.isNull() || z.isNull() || sweeper.isNull()) {
        fillWithNan(&d, 1, n);
        fillWithNan(v, n, n);
        return 0;
    }
    JacobiState state{n, d, z.data()};
    start(sweeper, a, state, b.data());
    const Outcome outcome = iterate(sweeper, state, b.data());
    finish(sweeper, n, a, v);
    if (outcome == Outcome::NotConverged)
        reportError("Error: no convergence in finding eigen values.");
    return state.rotations;
}

} // namespace

int jacobi(double** a, int n, double* d, double** v)
{
    return n < blockedOrder ? decompose<JacobiRowSweeper>(a, n, d, v)
                            : decompose<JacobiBlockSweeper>(a, n, d, v);
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
