// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/numerics.h"

#include "numerics/errorreport.h"
#include "numerics/owners.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace pelmora::plain {

namespace {

bool negligible(double x, double y)
{
    return x + y == y;
}

double offDiagonalSum(const double* const* a, int n)
{
    double sum = 0.0;
    for (int i = 0; i < n - 1; ++i)
        for (int j = i + 1; j < n; ++j)
            sum += std::fabs(a[i][j]);
    return sum;
}

double rotationTangent(double g, double h)
{
    if (h == 0.0)
        return 1.0;
    if (negligible(g, h))
        return g / h;
    const double theta = h / (2.0 * g);
    return (theta < 0.0 ? -1.0 : 1.0) / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
}

void rotatePair(double& g, double& h, double s, double tau)
{
    const double g0 = g;
    const double h0 = h;
    g = g0 - s * (h0 + g0 * tau);
    h = h0 + s * (g0 - h0 * tau);
}

void rotatePlane(double** a, double** v, int n, int ip, int iq, double s, double tau)
{
    for (int j = 0; j < ip; ++j)
        rotatePair(a[j][ip], a[j][iq], s, tau);
    for (int j = ip + 1; j < iq; ++j)
        rotatePair(a[ip][j], a[j][iq], s, tau);
    for (int j = iq + 1; j < n; ++j)
        rotatePair(a[ip][j], a[iq][j], s, tau);
    for (int j = 0; j < n; ++j)
        rotatePair(v[j][ip], v[j][iq], s, tau);
}

} // namespace

int jacobi(double** a, int n, double* d, double** v)
{
    Vector b(n);
    Vector z(n);
    if (b.isNull() || z.isNull()) {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        std::fill_n(d, n, nan);
        for (int i = 0; i < n; ++i)
            std::fill_n(v[i], n, nan);
        return 0;
    }
    for (int ip = 0; ip < n; ++ip) {
        std::fill_n(v[ip], n, 0.0);
        v[ip][ip] = b[ip] = d[ip] = a[ip][ip];
        z[ip] = 0.0;
    }
    int rotations = 0;
    for (int sweep = 1; sweep < 500; ++sweep) {
        const double sm = offDiagonalSum(a, n);
        if (sm == 0.0)
            return rotations;
        const double tresh = sweep < 4 ? 0.02 * sm / double(std::int64_t(n) * n) : 0.0;
        for (int ip = 0; ip < n - 1; ++ip)
            for (int iq = ip + 1; iq < n; ++iq) {
                const double g = a[ip][iq];
                if (sweep > 4 && negligible(g, d[ip]) && negligible(g, d[iq])) {
                    a[ip][iq] = 0.0;
                } else if (std::fabs(g) > tresh) {
                    const double t = rotationTangent(g, d[iq] - d[ip]);
                    const double c = 1.0 / std::sqrt(t * t + 1.0);
                    const double s = t * c;
                    const double tau = s / (1.0 + c);
                    const double shift = t * g;
                    z[ip] -= shift;
                    z[iq] += shift;
                    d[ip] -= shift;
                    d[iq] += shift;
                    a[ip][iq] = 0.0;
                    rotatePlane(a, v, n, ip, iq, s, tau);
                    ++rotations;
                }
            }
        for (int ip = 0; ip < n; ++ip) {
            b[ip] += z[ip];
            d[ip] = b[ip];
            z[ip] = 0.0;
        }
    }
    reportError("Error: no convergence in finding eigen values.");
    return rotations;
}

} // namespace pelmora::plain
