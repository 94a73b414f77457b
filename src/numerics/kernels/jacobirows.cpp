// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The sweep for small matrices. With the whole symmetric matrix at hand and the eigenvectors
// transposed, a rotation changes whole rows, two of each. The column that mirrors the row of iq
// must be written back at once, since the next rotations of ip read it in their rows, but only
// below ip; the column of ip follows when ip is done, and what lies above at the end of the sweep.
// Computing a rotation is a long dependency chain of divisions and roots. The eigenvectors
// therefore stay one rotation behind: applying the last one to them fills the wait.

#include "numerics/kernels/jacobisweeps.h"

namespace pelmora {

namespace {

/// Copies a row, from column @p first on, into the column that mirrors it.
PELMORA_ALWAYS_INLINE void mirrorRow(AlignedRows& matrix, int n, int row, int first)
{
    const double* from = matrix[row];
    double* to = matrix[first] + row;
    const std::ptrdiff_t stride = matrix.stride();
    for (int j = first; j < n; ++j, to += stride)
        *to = from[j];
}

/// Brings the upper triangle up to date at the end of a sweep.
PELMORA_ALWAYS_INLINE void mirrorLowerTriangle(AlignedRows& matrix, int n)
{
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < i; ++j)
            matrix[j][i] = matrix[i][j];
}

struct SweepByRows
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(JacobiState& state, AlignedRows& matrix,
                                          AlignedRows& vectors)
    {
        const int n = state.n;
        for (int ip = 0; ip < n - 1; ++ip) {
            double* x = matrix[ip];
            double* v = vectors[ip];
            double* behind = nullptr;
            PlaneRotation last = {};
            for (int iq = ip + 1; iq < n; ++iq) {
                const double g = x[iq];
                if (isDropped(state, g, ip, iq)) {
                    x[iq] = 0.0;
                } else if (std::fabs(g) > state.threshold) {
                    const PlaneRotation rotation = startRotation(state, g, ip, iq);
                    if (behind)
                        rotateRows<Lanes>(v, behind, n, last);
                    double* y = matrix[iq];
                    rotateRows<Lanes>(x, y, n, rotation);
                    x[ip] = x[iq] = y[ip] = y[iq] = 0.0;
                    mirrorRow(matrix, n, iq, ip + 1);
                    behind = vectors[iq];
                    last = rotation;
                }
            }
            if (behind)
                rotateRows<Lanes>(v, behind, n, last);
            mirrorRow(matrix, n, ip, ip + 1);
        }
        mirrorLowerTriangle(matrix, n);
    }
};

} // namespace

/// A small matrix is done with before anybody could ask; only many sweeps take their time.
bool JacobiRowSweeper::sweep(JacobiState& state)
{
    const int rotations = state.rotations;
    runKernel<SweepByRows>(state, m_matrix, m_vectors);
    return state.meter.goOnAfter(3.0 * (state.rotations - rotations) * state.n);
}

} // namespace pelmora
