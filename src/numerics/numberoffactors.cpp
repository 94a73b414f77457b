// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/numberoffactors.h"

#include <algorithm>
#include <cmath>

namespace pelmora {

namespace {

constexpr double nothingLeft = 1e-8;
constexpr double tie = 1e-12;

/// What the first components leave of the correlations; upper triangle only.
class Remainder
{
public:
    explicit Remainder(const Matrix& r) : m_values(r.clone()), m_scale(r.rows()), m_vector(r.rows())
    {
    }

    bool isNull() const { return m_values.isNull() || m_scale.isNull() || m_vector.isNull(); }

    /// jacobi() starts the eigenvectors as the diagonal of r, so they are divided by it.
    void removeComponent(const Matrix& r, const Decomposition& d, int m)
    {
        const int p = m_values.rows();
        for (int j = 0; j < p; ++j)
            m_vector[j] = d.eigenvectors[j][m] / r[j][j];
        for (int j = 0; j < p; ++j) {
            const double weight = d.eigenvalues[m] * m_vector[j];
            double* __restrict row = m_values[j];
            for (int k = j; k < p; ++k)
                row[k] -= weight * m_vector[k];
        }
    }

    /// False where only rounding is left of a variable.
    bool average(double& squares, double& fourthPowers)
    {
        const int p = m_values.rows();
        for (int j = 0; j < p; ++j) {
            if (!(m_values[j][j] >= nothingLeft))
                return false;
            m_scale[j] = 1.0 / std::sqrt(m_values[j][j]);
        }
        squares = 0.0;
        fourthPowers = 0.0;
        for (int j = 0; j < p; ++j)
            for (int k = j + 1; k < p; ++k) {
                const double partial = m_values[j][k] * m_scale[j] * m_scale[k];
                const double square = partial * partial;
                squares += square;
                fourthPowers += square * square;
            }
        const double pairs = 0.5 * p * (p - 1.0);
        squares /= pairs;
        fourthPowers /= pairs;
        return true;
    }

private:
    Matrix m_values;
    Vector m_scale;
    Vector m_vector;
};

Vector firstOf(const Vector& values, int count)
{
    Vector result(count);
    if (!result.isNull())
        std::copy_n(values.begin(), count, result.begin());
    return result;
}

int firstSmallest(const Vector& values)
{
    const double smallest = *std::min_element(values.begin(), values.end());
    const double* first = std::find_if(values.begin(), values.end(),
                                       [=](double value) { return value <= smallest + tie; });
    return int(first - values.begin());
}

} // namespace

int countEigenvaluesOfAtLeastOne(const Vector& eigenvalues)
{
    return int(std::count_if(eigenvalues.begin(), eigenvalues.end(),
                             [](double value) { return value >= 1.0; }));
}

int proposedFactors(const Vector& eigenvalues)
{
    return std::min(std::max(countEigenvaluesOfAtLeastOne(eigenvalues), 2), eigenvalues.size());
}

int countLeadingAbove(const Vector& eigenvalues, const Vector& references)
{
    int count = 0;
    while (count < eigenvalues.size() && eigenvalues[count] > references[count])
        ++count;
    return count;
}

Computed<MinimumAveragePartial> minimumAveragePartial(const Matrix& r, const Decomposition& d)
{
    if (const Obstacle obstacle = obstacleToAnything(r, d.eigenvalues))
        return {obstacle, {}};
    const int p = r.rows();
    Remainder remainder(r);
    Vector squares(p - 1);
    Vector fourthPowers(p - 1);
    if (remainder.isNull() || squares.isNull() || fourthPowers.isNull())
        return {};

    int count = 0;
    while (count < p - 1 && remainder.average(squares[count], fourthPowers[count]))
        remainder.removeComponent(r, d, count++);

    Computed<MinimumAveragePartial> result;
    result.value.squares = firstOf(squares, count);
    result.value.fourthPowers = firstOf(fourthPowers, count);
    if (result.value.squares.isNull() || result.value.fourthPowers.isNull())
        return {};
    result.value.bySquares = firstSmallest(result.value.squares);
    result.value.byFourthPowers = firstSmallest(result.value.fourthPowers);
    return result;
}

Computed<EmpiricalKaiser> empiricalKaiserCriterion(const Matrix& r, const Decomposition& d,
                                                   int cases)
{
    if (const Obstacle obstacle = obstacleToComparison(r, d.eigenvalues, cases))
        return {obstacle, {}};
    const int p = r.rows();
    Computed<EmpiricalKaiser> result;
    result.value.references = Vector(p);
    if (result.value.references.isNull())
        return result;
    const double root = 1.0 + std::sqrt(double(p) / cases);
    double left = p;
    for (int j = 0; j < p; ++j) {
        result.value.references[j] = std::max(1.0, root * root * left / (p - j));
        left -= d.eigenvalues[j];
    }
    result.value.factors = countLeadingAbove(d.eigenvalues, result.value.references);
    return result;
}

} // namespace pelmora
