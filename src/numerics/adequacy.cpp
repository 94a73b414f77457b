// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/adequacy.h"

#include "numerics/chisquare.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pelmora {

namespace {

/// Of the upper triangle, the one that the decomposition reads.
double correlation(const Matrix& r, int j, int k)
{
    return r[std::min(j, k)][std::max(j, k)];
}

/// The inverse from the eigenpairs, upper triangle only. jacobi() starts the eigenvectors as the
/// diagonal of r instead of the identity, so they are divided by it.
Matrix invert(const Matrix& r, const Decomposition& d)
{
    const int p = r.rows();
    Matrix root(p, p);
    Matrix q(p, p);
    if (root.isNull() || q.isNull())
        return {};
    for (int j = 0; j < p; ++j)
        for (int i = 0; i < p; ++i)
            root[j][i] = d.eigenvectors[j][i] / r[j][j] / std::sqrt(d.eigenvalues[i]);
    for (int j = 0; j < p; ++j)
        for (int k = j; k < p; ++k) {
            double sum = 0.0;
            for (int i = 0; i < p; ++i)
                sum += root[j][i] * root[k][i];
            q[j][k] = sum;
        }
    return q;
}

Vector squaredMultipleCorrelations(const Matrix& q)
{
    Vector result(q.rows());
    for (int j = 0; j < result.size(); ++j)
        result[j] = 1.0 - 1.0 / q[j][j];
    return result;
}

/// Scales the inverse to the anti-image correlations; its diagonal is left as it is.
void scaleToAntiImage(Matrix& q)
{
    for (int j = 0; j < q.rows(); ++j)
        for (int k = j + 1; k < q.rows(); ++k)
            q[j][k] = q[k][j] = q[j][k] / std::sqrt(q[j][j] * q[k][k]);
}

/// Sums over the other variables of a row, or of all rows.
struct Squares
{
    double correlations = 0.0;
    double partials = 0.0;
    bool allZero = true;

    void add(double r, double a)
    {
        correlations += r * r;
        partials += a * a;
        allZero = allZero && isZeroCorrelation(r);
    }
    void add(const Squares& other)
    {
        correlations += other.correlations;
        partials += other.partials;
        allZero = allZero && other.allZero;
    }
    double measure() const { return correlations / (correlations + partials); }
};

Squares squaresOfRow(const Matrix& r, const Matrix& antiImage, int j)
{
    Squares squares;
    for (int k = 0; k < r.rows(); ++k)
        if (k != j)
            squares.add(correlation(r, j, k), antiImage[j][k]);
    return squares;
}

/// Computes the MSA of every variable, also as the diagonal of the anti-image, and the KMO.
void measure(const Matrix& r, Adequacy& result)
{
    result.msa = Vector(r.rows());
    if (result.msa.isNull())
        return;
    Squares all;
    for (int j = 0; j < r.rows(); ++j) {
        const Squares row = squaresOfRow(r, result.antiImage, j);
        result.msa[j] = row.allZero ? std::numeric_limits<double>::quiet_NaN() : row.measure();
        result.antiImage[j][j] = result.msa[j];
        all.add(row);
    }
    if (all.allZero)
        result.kmo.obstacle = {Reason::NoCorrelations};
    else
        result.kmo.value = all.measure();
}

double sumOfLogarithms(const Vector& eigenvalues)
{
    double sum = 0.0;
    for (const double eigenvalue : eigenvalues)
        sum += std::log(eigenvalue);
    return sum;
}

} // namespace

Adequacy adequacy(const Matrix& r, const Decomposition& d)
{
    Adequacy result;
    if (const Obstacle obstacle = obstacleToInverse(r, d.eigenvalues)) {
        result.kmo.obstacle = obstacle;
        result.lnDeterminant.obstacle = obstacle;
        result.eigenvalueRatio.obstacle = obstacle;
        return result;
    }
    const int p = r.rows();
    result.lnDeterminant.value = sumOfLogarithms(d.eigenvalues);
    result.eigenvalueRatio.value = d.eigenvalues[0] / d.eigenvalues[p - 1];
    result.antiImage = invert(r, d);
    if (result.antiImage.isNull())
        return result;
    result.squaredMultipleCorrelations = squaredMultipleCorrelations(result.antiImage);
    scaleToAntiImage(result.antiImage);
    measure(r, result);
    return result;
}

Computed<Bartlett> bartlettTest(const Matrix& r, const Decomposition& d, int cases)
{
    const int p = r.rows();
    if (const Obstacle obstacle = obstacleToInverse(r, d.eigenvalues))
        return {obstacle, {}};
    if (const Obstacle obstacle = obstacleOfCases(cases, p + 1))
        return {obstacle, {}};
    Computed<Bartlett> result;
    Bartlett& test = result.value;
    const double factor = cases - 1.0 - (2.0 * p + 5.0) / 6.0;
    // Without any correlation the sum may be a rounding error above 0.
    test.chiSquare = std::max(0.0, -factor * sumOfLogarithms(d.eigenvalues));
    test.degrees = 0.5 * p * (p - 1.0);
    test.lnP = lnUpperChiSquare(test.chiSquare, test.degrees);
    test.p = std::exp(test.lnP);
    return result;
}

} // namespace pelmora
