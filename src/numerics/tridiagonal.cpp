// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/tridiagonal.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace pelmora {

namespace {

/// Two or three are usual.
constexpr int stepLimit = 100;

double dot(const double* x, const double* y, int n)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum += x[i] * y[i];
    return sum;
}

double largestElement(const Matrix& a)
{
    double largest = 0.0;
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j <= i; ++j)
            largest = std::max(largest, std::fabs(a[i][j]));
    return largest;
}

void add(double* __restrict y, const double* __restrict x, double factor, int n)
{
    for (int i = 0; i < n; ++i)
        y[i] += factor * x[i];
}

} // namespace

TridiagonalEigenvalues::TridiagonalEigenvalues(int n)
    : m_diagonal(n)
    , m_beside(n)
    , m_normal(n)
    , m_product(n)
{
}

bool TridiagonalEigenvalues::isNull() const
{
    return m_diagonal.isNull() || m_beside.isNull() || m_normal.isNull() || m_product.isNull();
}

const Vector& TridiagonalEigenvalues::compute(Matrix& a)
{
    reduce(a);
    iterate();
    std::sort(m_diagonal.begin(), m_diagonal.end(), std::greater());
    return m_diagonal;
}

void TridiagonalEigenvalues::reduce(Matrix& a)
{
    const int n = a.rows();
    const double negligible = std::numeric_limits<double>::epsilon() * largestElement(a);
    for (int i = 0; i < n; ++i) {
        const double* row = a[i] + i + 1;
        const int length = n - i - 1;
        const double norm = std::sqrt(dot(row, row, length));
        m_diagonal[i] = a[i][i];
        // With a low rank the remainder shrinks from row to row and would underflow.
        m_beside[i] = norm > negligible ? row[0] : 0.0;
        if (norm > negligible && length > 1)
            reflect(a, i, norm);
    }
}

/// Reflects the rows and columns after i, so that only one element, of size @p norm, remains beside
/// the diagonal in row i: A - v w' - w v' with v the normal, w = q - (b v'q / 2) v, q = b A v and
/// b = 2 / v'v.
void TridiagonalEigenvalues::reflect(Matrix& a, int i, double norm)
{
    const int first = i + 1;
    const int length = a.rows() - first;
    double* v = m_normal.data();
    double* w = m_product.data();
    std::copy_n(a[i] + first, length, v);
    m_beside[i] = std::copysign(norm, -v[0]);
    v[0] -= m_beside[i];
    const double b = 1.0 / (norm * std::fabs(v[0]));

    std::fill_n(w, length, 0.0);
    for (int j = 0; j < length; ++j)
        add(w, a[first + j] + first, b * v[j], length);
    add(w, v, -0.5 * b * dot(v, w, length), length);
    for (int j = 0; j < length; ++j) {
        double* __restrict row = a[first + j] + first;
        const double vj = v[j];
        const double wj = w[j];
        for (int k = 0; k < length; ++k)
            row[k] -= vj * w[k] + wj * v[k];
    }
}

void TridiagonalEigenvalues::iterate()
{
    double largest = 0.0;
    for (int i = 0; i < m_diagonal.size(); ++i)
        largest = std::max(largest, std::fabs(m_diagonal[i]) + std::fabs(m_beside[i]));
    const double tolerance = std::numeric_limits<double>::epsilon() * largest;
    for (int i = 0; i < m_diagonal.size(); ++i)
        for (int k = 0; k < stepLimit; ++k) {
            const int split = firstSplit(i, tolerance);
            if (split == i)
                break;
            step(i, split);
        }
}

/// The first index from @p from on whose element beside the diagonal is negligible.
int TridiagonalEigenvalues::firstSplit(int from, double tolerance) const
{
    int place = from;
    while (place + 1 < m_diagonal.size() && std::fabs(m_beside[place]) > tolerance)
        ++place;
    return place;
}

/// One implicit QL step from @p to up to @p from, shifted to the eigenvalue there.
void TridiagonalEigenvalues::step(int from, int to)
{
    double* d = m_diagonal.data();
    double* e = m_beside.data();
    const double half = (d[from + 1] - d[from]) / (2.0 * e[from]);
    double g =
        d[to] - d[from] + e[from] / (half + std::copysign(std::sqrt(half * half + 1.0), half));
    double sine = 1.0;
    double cosine = 1.0;
    double shift = 0.0;
    for (int i = to - 1; i >= from; --i) {
        const double f = sine * e[i];
        const double b = cosine * e[i];
        const double r = std::sqrt(f * f + g * g);
        e[i + 1] = r;
        if (r == 0.0) { // it splits here
            d[i + 1] -= shift;
            e[to] = 0.0;
            return;
        }
        sine = f / r;
        cosine = g / r;
        g = d[i + 1] - shift;
        const double rest = (d[i] - g) * sine + 2.0 * cosine * b;
        shift = sine * rest;
        d[i + 1] = g + shift;
        g = cosine * rest - b;
    }
    d[from] -= shift;
    e[from] = g;
    e[to] = 0.0;
}

} // namespace pelmora
