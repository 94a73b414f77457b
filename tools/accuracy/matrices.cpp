// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "matrices.h"

#include "numerics/correlation.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pelmora {

namespace {

void mirrorUpper(Matrix& a)
{
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < i; ++j)
            a[i][j] = a[j][i];
}

/// a := H a H with the reflection H = I - 2 u u' / u'u.
void reflect(Matrix& a, const Vector& u)
{
    const int n = a.rows();
    const double beta = 2.0 / std::inner_product(u.begin(), u.end(), u.begin(), 0.0);
    Vector w(n);
    for (int i = 0; i < n; ++i)
        w[i] = beta * std::inner_product(u.begin(), u.end(), a[i], 0.0);
    const double half = 0.5 * beta * std::inner_product(u.begin(), u.end(), w.begin(), 0.0);
    for (int i = 0; i < n; ++i)
        w[i] -= half * u[i];
    for (int i = 0; i < n; ++i)
        for (int j = i; j < n; ++j)
            a[i][j] -= w[i] * u[j] + u[i] * w[j];
    mirrorUpper(a);
}

/// Rotates the plane (i, j), whose diagonal elements lie on both sides of 1, so that a[i][i] is 1.
void rotateDiagonal(Matrix& a, int i, int j)
{
    const double x = a[i][i] - 1.0;
    const double y = a[j][j] - 1.0;
    const double g = a[i][j];
    const double root = std::sqrt(g * g - x * y);
    const double t = x / (g + (g < 0.0 ? -root : root));
    const double c = 1.0 / std::sqrt(1.0 + t * t);
    const double s = c * t;
    for (int k = 0; k < a.rows(); ++k) {
        const double left = a[k][i];
        a[k][i] = c * left - s * a[k][j];
        a[k][j] = s * left + c * a[k][j];
    }
    for (int k = 0; k < a.rows(); ++k) {
        const double upper = a[i][k];
        a[i][k] = c * upper - s * a[j][k];
        a[j][k] = s * upper + c * a[j][k];
    }
}

} // namespace

Matrix factorData(Random& random, int cases, int variables, int factors, int points)
{
    Matrix loadings(variables, factors);
    for (int j = 0; j < variables; ++j)
        for (int k = 0; k < factors; ++k)
            loadings[j][k] = random.uniform(-0.3, 0.3) + (j % factors == k ? 0.8 : 0.0);
    Matrix data(cases, variables);
    std::vector<double> scores(static_cast<std::size_t>(factors));
    for (int i = 0; i < cases; ++i) {
        for (double& score : scores)
            score = random.normal();
        for (int j = 0; j < variables; ++j) {
            const double value = std::inner_product(scores.begin(), scores.end(), loadings[j],
                                                    0.7 * random.normal());
            data[i][j] = points == 0
                             ? value
                             : std::clamp(std::round(value * points / 5 + 0.5 * (points + 1)), 1.0,
                                          double(points));
        }
    }
    return data;
}

Matrix correlationsOf(Matrix data)
{
    const int p = data.columns();
    Matrix r = Matrix::adopt(correlate(data.rowPointers(), data.rows(), p, 0), p, p);
    mirrorUpper(r);
    return r;
}

Matrix withEigenvalues(Random& random, const std::vector<double>& eigenvalues)
{
    const int n = int(eigenvalues.size());
    const double mean = std::accumulate(eigenvalues.begin(), eigenvalues.end(), 0.0) / n;
    Matrix a(n, n);
    for (int i = 0; i < n; ++i) {
        std::fill_n(a[i], n, 0.0);
        a[i][i] = eigenvalues[std::size_t(i)] / mean;
    }
    Vector u(n);
    for (int k = 0; k < n; ++k) {
        for (double& value : u)
            value = random.normal();
        reflect(a, u);
    }
    return a;
}

void makeDiagonalOne(Matrix& a)
{
    const int n = a.rows();
    for (int i = 0; i < n - 1; ++i) {
        const bool above = a[i][i] > 1.0;
        int j = i + 1;
        while (j < n && (a[i][i] == 1.0 || (a[j][j] > 1.0) == above || a[j][j] == 1.0))
            ++j;
        if (j < n)
            rotateDiagonal(a, i, j);
    }
    for (int i = 0; i < n; ++i)
        a[i][i] = 1.0;
    mirrorUpper(a);
}

Matrix equicorrelated(int n, double r, int blockSize)
{
    Matrix a(n, n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            a[i][j] = i == j ? 1.0 : i / blockSize == j / blockSize ? r : 0.0;
    return a;
}

Matrix randomCorrelations(Random& random, int n, double largest)
{
    Matrix a = equicorrelated(n, 0.0, 1);
    for (int i = 0; i < n; ++i)
        for (int j = i + 1; j < n; ++j)
            a[i][j] = random.uniform(-largest, largest);
    mirrorUpper(a);
    return a;
}

void roundTo(Matrix& a, int decimals)
{
    const double factor = std::pow(10.0, decimals);
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            a[i][j] = std::round(a[i][j] * factor) / factor;
}

void scale(Matrix& r, const std::vector<double>& deviations)
{
    for (int i = 0; i < r.rows(); ++i)
        for (int j = 0; j < r.columns(); ++j)
            r[i][j] *= deviations[std::size_t(i)] * deviations[std::size_t(j)];
}

} // namespace pelmora
