// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/correlation.h"
#include "numerics/errorreport.h"
#include "numerics/initialfactors.h"
#include "numerics/jacobi.h"
#include "numerics/owners.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

/// What the tests of the numerics share.
namespace numericstest {

using pelmora::Matrix;
using pelmora::Vector;

/// The same numbers on every machine.
class Random
{
public:
    explicit Random(unsigned seed) : m_state(seed * 0x9E3779B97F4A7C15ULL + 1) {}

    /// Between -1 and 1.
    double number() { return static_cast<double>(next() >> 11) * 0x1p-52 - 1.0; }
    int integer(int low, int high)
    {
        return low + static_cast<int>(next() % unsigned(high - low + 1));
    }

private:
    unsigned long long next()
    {
        m_state += 0x9E3779B97F4A7C15ULL;
        unsigned long long z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }

    unsigned long long m_state;
};

inline Matrix filled(int rows, int columns, double value)
{
    Matrix result(rows, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            result[i][j] = value;
    return result;
}

inline Matrix randomMatrix(int rows, int columns, Random& random)
{
    Matrix result(rows, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            result[i][j] = random.number();
    return result;
}

/// Answers from 1 to 5 that have some factors in common.
inline Matrix survey(int cases, int variables, Random& random)
{
    const int factors = random.integer(1, std::max(1, variables / 2));
    const Matrix weights = randomMatrix(variables, factors, random);
    Matrix result(cases, variables);
    for (int i = 0; i < cases; ++i) {
        const Matrix person = randomMatrix(1, factors, random);
        for (int j = 0; j < variables; ++j) {
            double answer = random.number();
            for (int k = 0; k < factors; ++k)
                answer += weights[j][k] * person[0][k];
            result[i][j] = std::round(std::fmin(5.0, std::fmax(1.0, 3.0 + answer)));
        }
    }
    return result;
}

inline Matrix correlationsOf(Matrix data)
{
    const int p = data.columns();
    return Matrix::adopt(pelmora::correlate(data.rowPointers(), data.rows(), p, 0), p, p);
}

/// All initial loadings and, behind them, the column of zeros that the rotation of all needs.
inline Matrix initialLoadings(Matrix correlations, int* factorsAboveOne = nullptr)
{
    const int p = correlations.rows();
    Vector d(p);
    Matrix v(p, p);
    pelmora::jacobi(correlations.rowPointers(), p, d.data(), v.rowPointers());
    pelmora::sort_eigenpairs(d.data(), v.rowPointers(), p);
    Matrix loadings = filled(p, p + 1, 0.0);
    pelmora::initial_loadings(d.data(), v.rowPointers(), p, p, loadings.rowPointers());
    if (factorsAboveOne)
        *factorsAboveOne =
            static_cast<int>(std::count_if(d.begin(), d.end(), [](double x) { return x >= 1.0; }));
    return loadings;
}

/// Equal to the bit, but one NaN is as good as another.
inline bool sameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

inline bool sameBits(const double* a, const double* b, int count)
{
    for (int i = 0; i < count; ++i)
        if (!sameBits(a[i], b[i]))
            return false;
    return true;
}

inline bool sameBits(const Matrix& a, const Matrix& b)
{
    if (a.rows() != b.rows() || a.columns() != b.columns())
        return false;
    for (int i = 0; i < a.rows(); ++i)
        if (!sameBits(a[i], b[i], a.columns()))
            return false;
    return true;
}

inline bool allNan(const Matrix& a, int columns)
{
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < columns; ++j)
            if (!std::isnan(a[i][j]))
                return false;
    return true;
}

/// The rows of numbers in a file, those with anything else left out.
inline std::vector<std::vector<double>> numbersIn(const QString& path)
{
    QFile file(path);
    std::vector<std::vector<double>> result;
    if (!file.open(QIODevice::ReadOnly))
        return result;
    for (const QByteArray& line : file.readAll().split('\n')) {
        std::vector<double> row;
        bool numbersOnly = true;
        for (const QByteArray& word : line.simplified().split(' ')) {
            bool isNumber = false;
            row.push_back(word.toDouble(&isNumber));
            numbersOnly = numbersOnly && isNumber;
        }
        if (numbersOnly)
            result.push_back(row);
    }
    return result;
}

/// Keeps the messages of the numerics while it lives.
class Reports
{
public:
    Reports()
    {
        texts.clear();
        m_previous =
            pelmora::setErrorReport([](const char* text) { texts += QLatin1String(text); });
    }
    ~Reports() { pelmora::setErrorReport(m_previous); }

    inline static QStringList texts;

private:
    pelmora::ErrorReport m_previous;
};

} // namespace numericstest
