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

template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotateRows(double* x, double* y, int n, PlaneRotation r)
{
    for (int j = 0; j < n; j += laneCount<Lanes>) {
        Lanes g = lanesAt<Lanes>(x + j).values;
        rotatePairs(g, y + j, r);
        lanesAt<Lanes>(x + j).values = g;
    }
}

struct SweepByRows
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(JacobiState& state)
    {
        const int n = state.n;
        for (int ip = 0; ip < n - 1; ++ip) {
            double* x = state.matrix[ip];
            double* v = state.vectors[ip];
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
                    double* y = state.matrix[iq];
                    rotateRows<Lanes>(x, y, n, rotation);
                    x[ip] = x[iq] = y[ip] = y[iq] = 0.0;
                    mirrorRow(state, iq, ip + 1);
                    behind = state.vectors[iq];
                    last = rotation;
                }
            }
            if (behind)
                rotateRows<Lanes>(v, behind, n, last);
            mirrorRow(state, ip, ip + 1);
        }
        mirrorLowerTriangle(state);
    }
};

} // namespace

void sweepByRows(JacobiState& state)
{
    runKernel<SweepByRows>(state);
}

} // namespace pelmora
