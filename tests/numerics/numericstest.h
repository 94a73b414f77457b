// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/correlation.h"
#include "numerics/errorreport.h"
#include "numerics/initialfactors.h"
#include "numerics/jacobi.h"
#include "numerics/owners.h"
#include "numerics/rotation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// What the tests of the numerics share. Knows nothing of Qt, which bits.cpp is compiled without.
namespace numericstest {

using pelmora::Matrix;
using pelmora::Vector;

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The same numbers on every machine.
class Random
{
public:
    explicit Random(unsigned seed) : m_generator(seed) {}

    /// Between -1 and 1.
    double number() { return static_cast<double>(m_generator() >> 11) * 0x1p-52 - 1.0; }
    int integer(int low, int high)
    {
        return low + static_cast<int>(m_generator() % unsigned(high - low + 1));
    }

private:
    std::mt19937_64 m_generator;
};

/// All elements, row by row.
inline auto elements(auto& matrix)
{
    return std::span(matrix[0], std::size_t(matrix.rows()) * std::size_t(matrix.columns()));
}

inline Matrix filled(int rows, int columns, double value)
{
    Matrix result(rows, columns);
    std::ranges::fill(elements(result), value);
    return result;
}

inline Matrix randomMatrix(int rows, int columns, Random& random)
{
    Matrix result(rows, columns);
    for (double& element : elements(result))
        element = random.number();
    return result;
}

inline Matrix fromRows(const std::vector<std::vector<double>>& rows)
{
    Matrix result(int(rows.size()), int(rows.front().size()));
    for (int i = 0; i < result.rows(); ++i)
        std::ranges::copy(rows[std::size_t(i)], result[i]);
    return result;
}

/// Answers from 1 to 5 that have some factors in common.
inline Matrix survey(int cases, int variables, Random& random)
{
    const int factors = random.integer(1, std::max(1, variables / 2));
    const Matrix weights = randomMatrix(variables, factors, random);
    const Matrix persons = randomMatrix(cases, factors, random);
    Matrix result(cases, variables);
    for (int i = 0; i < cases; ++i)
        for (int j = 0; j < variables; ++j) {
            double answer = 3.0 + random.number();
            for (int k = 0; k < factors; ++k)
                answer += weights[j][k] * persons[i][k];
            result[i][j] = std::round(std::clamp(answer, 1.0, 5.0));
        }
    return result;
}

/// Leaves standard scores in @p data.
inline Matrix correlationsOf(Matrix& data, int flag = 0)
{
    const int p = flag == 1 ? data.rows() : data.columns();
    return Matrix::adopt(pelmora::correlate(data.rowPointers(), data.rows(), data.columns(), flag),
                         p, p);
}

struct Decomposition
{
    explicit Decomposition(Matrix given, decltype(pelmora::jacobi)& routine = pelmora::jacobi)
        : a(std::move(given))
        , d(a.rows())
        , v(a.rows(), a.rows())
        , rotations(routine(a.rowPointers(), a.rows(), d.data(), v.rowPointers()))
    {
    }

    Matrix a;
    Vector d;
    Matrix v;
    int rotations;
};

/// Sorted by their eigenvalues.
struct Eigenpairs : Decomposition
{
    explicit Eigenpairs(Matrix correlations) : Decomposition(std::move(correlations))
    {
        pelmora::sort_eigenpairs(d.data(), v.rowPointers(), v.rows());
    }

    /// All columns, then the column of zeros that a rotation of all factors reads.
    Matrix initialLoadings() const
    {
        Matrix l = filled(v.rows(), v.rows() + 1, 0.0);
        pelmora::initial_loadings(d.data(), v.rowPointers(), v.rows(), v.rows(), l.rowPointers());
        return l;
    }
};

/// Loadings that are rotated, and the first m of their columns in place of score coefficients:
/// rotated alike, these stay equal to the loadings.
struct Rotation
{
    Rotation(const Matrix& loadings, int factors)
        : l(loadings.clone())
        , b(l.rows(), factors)
        , m(factors)
    {
        for (int i = 0; i < l.rows(); ++i)
            std::copy_n(l[i], m, b[i]);
    }

    void rotate(int method, decltype(pelmora::rotate)& routine = pelmora::rotate)
    {
        routine(l.rowPointers(), b.rowPointers(), m, l.rows(), method);
    }

    double sweep(int method, decltype(pelmora::rotation_sweep)& routine = pelmora::rotation_sweep)
    {
        return routine(l.rowPointers(), b.rowPointers(), m, l.rows(), method);
    }

    /// The criterion of the rotated columns.
    double total() const
    {
        double sum = 0.0;
        for (int j = 0; j < m; ++j)
            sum += pelmora::column_criterion(l.rowPointers(), j, l.rows());
        return sum;
    }

    Matrix l;
    Matrix b;
    int m;
};

inline Rotation rotated(const Matrix& loadings, int factors, int method,
                        decltype(pelmora::rotate)& routine = pelmora::rotate)
{
    Rotation result(loadings, factors);
    result.rotate(method, routine);
    return result;
}

/// With NaN throughout the first columns.
inline Matrix withNan(const Matrix& matrix, int columns)
{
    Matrix result = matrix.clone();
    for (int i = 0; i < result.rows(); ++i)
        std::fill_n(result[i], columns, notANumber);
    return result;
}

/// Keeps the messages of the numerics while it lives.
class Reports
{
public:
    Reports()
    {
        texts.clear();
        m_previous = pelmora::setErrorReport([](const char* text) { texts.emplace_back(text); });
    }
    ~Reports() { pelmora::setErrorReport(m_previous); }

    inline static std::vector<std::string> texts;

private:
    pelmora::ErrorReport m_previous;
};

} // namespace numericstest
