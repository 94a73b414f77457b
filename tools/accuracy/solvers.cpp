// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "solvers.h"

#include "numerics/jacobi.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

extern "C" {
void dsyev_(const char* jobz, const char* uplo, const int* n, double* a, const int* lda, double* w,
            double* work, const int* lwork, int* info);
void dsyevd_(const char* jobz, const char* uplo, const int* n, double* a, const int* lda, double* w,
             double* work, const int* lwork, int* iwork, const int* liwork, int* info);
void ilaver_(int* major, int* minor, int* patch);
}

namespace pelmora {

namespace {

constexpr double eps = std::numeric_limits<double>::epsilon();

/// Eigenvectors come from LAPACK as columns, that is as the rows of a matrix of ours.
Eigenpairs transposed(Vector values, const Matrix& rows)
{
    const int n = rows.rows();
    Matrix vectors(n, n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            vectors[i][j] = rows[j][i];
    return {std::move(values), std::move(vectors)};
}

void requireSuccess(int info)
{
    if (info != 0)
        throw std::runtime_error("LAPACK failed with " + std::to_string(info));
}

} // namespace

Eigenpairs byJacobi(const Matrix& a)
{
    const int n = a.rows();
    Matrix destroyed = a.clone();
    Eigenpairs result{Vector(n), Matrix(n, n)};
    jacobi(destroyed.rowPointers(), n, result.values.data(), result.vectors.rowPointers());
    sort_eigenpairs(result.values.data(), result.vectors.rowPointers(), n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            result.vectors[i][j] /= a[i][i];
    return result;
}

Eigenpairs byDsyev(const Matrix& a)
{
    const int n = a.rows();
    const int workSize = 64 * n;
    Matrix rows = a.clone();
    Vector values(n);
    Vector work(workSize);
    int info = 0;
    dsyev_("V", "L", &n, rows[0], &n, values.data(), work.data(), &workSize, &info);
    requireSuccess(info);
    return transposed(std::move(values), rows);
}

Eigenpairs byDsyevd(const Matrix& a)
{
    const int n = a.rows();
    const int workSize = 1 + 64 * n + 2 * n * n;
    const int integerWorkSize = 3 + 5 * n;
    Matrix rows = a.clone();
    Vector values(n);
    Vector work(workSize);
    std::vector<int> integerWork(static_cast<std::size_t>(integerWorkSize));
    int info = 0;
    dsyevd_("V", "L", &n, rows[0], &n, values.data(), work.data(), &workSize, integerWork.data(),
            &integerWorkSize, &info);
    requireSuccess(info);
    return transposed(std::move(values), rows);
}

std::string lapackVersion()
{
    int major = 0;
    int minor = 0;
    int patch = 0;
    ilaver_(&major, &minor, &patch);
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
}

double scaledResidual(const Matrix& a, const Eigenpairs& pairs)
{
    const int n = a.rows();
    double norm = 0.0;
    long double residual = 0.0L;
    std::vector<long double> difference(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) {
        double columnNorm = 0.0;
        std::fill(difference.begin(), difference.end(), 0.0L);
        for (int i = 0; i < n; ++i) {
            columnNorm += std::fabs(a[i][k]);
            const long double x = pairs.vectors[i][k];
            for (int j = 0; j < n; ++j)
                difference[std::size_t(j)] += x * a[i][j];
        }
        long double sum = 0.0L;
        for (int i = 0; i < n; ++i)
            sum += std::fabs(difference[std::size_t(i)] -
                             static_cast<long double>(pairs.vectors[i][k]) * pairs.values[k]);
        norm = std::max(norm, columnNorm);
        residual = std::max(residual, sum);
    }
    return double(residual / (n * norm * eps));
}

double scaledDeparture(const Matrix& v)
{
    const int n = v.columns();
    long double largest = 0.0L;
    std::vector<long double> products(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) {
        std::fill(products.begin(), products.end(), 0.0L);
        products[std::size_t(k)] = -1.0L;
        for (int i = 0; i < v.rows(); ++i) {
            const long double x = v[i][k];
            for (int j = 0; j < n; ++j)
                products[std::size_t(j)] += x * v[i][j];
        }
        long double sum = 0.0L;
        for (const long double product : products)
            sum += std::fabs(product);
        largest = std::max(largest, sum);
    }
    return double(largest / (n * eps));
}

} // namespace pelmora
