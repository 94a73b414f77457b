// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// How the sweeps use the loops of rotationkernels.cpp. The method-aware and the improving sweep
// take the pairs in the order of the plain loops, (0, 1), (0, 2) and so on. The plain sweep, in
// which nearly all time is spent, takes them by the sum of their indices, which changes no bit: of
// two pairs with a column in common, the one that comes first in the plain loops has the smaller
// sum too, and pairs without one can change places. So neighbours in this order have mostly no
// column in common, and their sums are formed together. Coefficients decide nothing; they are
// rotated while the processor waits for the angles of the pairs that come next.

#include "numerics/kernels/rotationsweeps.h"

#include "numerics/kernels/nan.h"
#include "numerics/rotation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pelmora {

namespace {

constexpr double cancelledTotal = std::numeric_limits<double>::quiet_NaN();

bool hasNan(const double* x, int p)
{
    return std::any_of(x, x + p, [](double value) { return std::isnan(value); });
}

void gather(const double* const* from, int columns, int p, AlignedRows& to)
{
    for (int i = 0; i < p; ++i)
        for (int j = 0; j < columns; ++j)
            to[j][i] = from[i][j];
}

void scatter(const AlignedRows& from, int columns, int p, double** to)
{
    for (int i = 0; i < p; ++i)
        for (int j = 0; j < columns; ++j)
            to[i][j] = from[j][i];
}

} // namespace

RotationSweeps::RotationSweeps(double** l, double** b, int m, int p, int method)
    : m_givenL(l)
    , m_givenB(b)
    , m_factors(m)
    , m_variables(p)
    , m_method(method)
    , m_l(m + 1, p)
    , m_b(m, p)
    , m_meter({.work = Progress::Work::Rotation, .factors = m})
    , m_work(2, p)
{
    if (isNull()) {
        fillWithNan(l, p, m);
        fillWithNan(b, p, m);
        return;
    }
    gather(l, m + 1, p, m_l);
    gather(b, m, p, m_b);
}

void RotationSweeps::putBack()
{
    scatter(m_l, m_factors, m_variables, m_givenL);
    scatter(m_b, m_factors, m_variables, m_givenB);
}

double RotationSweeps::total() const
{
    double sum = 0.0;
    for (int j = 0; j < m_factors; ++j)
        sum += criterionOf(j);
    return sum;
}

bool RotationSweeps::isBetter(double criterion, double other) const
{
    if (m_method == VarimaxRotation)
        return criterion > other;
    return m_method == PelmoraRotation && criterion < other;
}

/// Nothing for a pair without a usable angle, which stays as it stands. NaN in the loadings is
/// another matter: it spreads.
std::optional<ColumnRotation> RotationSweeps::rotationBy(double angle, int j, int k) const
{
    if (std::isnan(angle) && !hasNan(m_l[j], m_variables) && !hasNan(m_l[k], m_variables))
        return {};
    return ColumnRotation{std::sin(angle), std::cos(angle)};
}

double RotationSweeps::criterionOf(int j) const
{
    return columnCriteria(m_l[j], m_l[j], m_variables).x;
}

double RotationSweeps::trialOf(ColumnRotation rotation, int j, int k)
{
    return rotateColumnsInto(m_l[j], m_l[k], m_variables, rotation, m_work[0], m_work[1]).sum();
}

/// The angle not taken is never looked at: one of the two is the maximum, the other the minimum.
std::optional<ColumnRotation> RotationSweeps::methodAwareRotation(int j, int k)
{
    PairSums sums;
    const double current = criteriaAndSums(m_l[j], m_l[k], m_variables, sums).sum();
    const auto [angle1, angle2] = stationaryAngles(pairTangents(sums, m_variables));
    const std::optional<ColumnRotation> first = rotationBy(angle1, j, k);
    if (first && isBetter(current, trialOf(*first, j, k)))
        return rotationBy(angle2, j, k);
    return first;
}

std::optional<ColumnRotation> RotationSweeps::improvingRotation(int j, int k)
{
    PairSums sums;
    const double current = criteriaAndSums(m_l[j], m_l[k], m_variables, sums).sum();
    const auto [angle1, angle2] = stationaryAngles(pairTangents(sums, m_variables));
    for (double angle : {angle1, angle2}) {
        const std::optional<ColumnRotation> candidate = rotationBy(angle, j, k);
        if (candidate && isBetter(trialOf(*candidate, j, k), current))
            return candidate;
    }
    return {};
}

void RotationSweeps::rotate(int j, int k, ColumnRotation by)
{
    rotateColumns(m_l[j], m_l[k], m_variables, by);
    rotateColumns(m_b[j], m_b[k], m_variables, by);
}

bool RotationSweeps::goOnAfterPairs(int pairs)
{
    constexpr double operationsPerElement = 2.0; // of both matrices
    return m_meter.goOnAfter(operationsPerElement * pairs * m_variables);
}

double RotationSweeps::methodAwareSweep()
{
    ++m_meter.progress().sweep;
    double criterion = 0.0;
    for (int j = 0; j < m_factors - 1; ++j) {
        if (!goOnAfterPairs(m_factors - j))
            return cancelledTotal;
        for (int k = j + 1; k < m_factors; ++k)
            if (const auto best = methodAwareRotation(j, k))
                rotate(j, k, *best);
        criterion += criterionOf(j);
    }
    return criterion + criterionOf(m_factors);
}

void RotationSweeps::improvingSweep()
{
    ++m_meter.progress().sweep;
    for (int j = 0; j < m_factors - 1 && goOnAfterPairs(m_factors - j); ++j)
        for (int k = j + 1; k < m_factors; ++k)
            if (const auto best = improvingRotation(j, k))
                rotate(j, k, *best);
}

void RotationSweeps::findNearestRotations(const DisjointPairs& pairs, const PairTangents* tangents)
{
    m_foundCount = 0;
    for (int i = 0; i < pairs.count(); ++i) {
        const auto& [j, k] = pairs[i];
        if (const auto nearest = rotationBy(nearestAngle(tangents[i]), j, k))
            m_found[m_foundCount++] = {pairs[i], *nearest};
    }
}

void RotationSweeps::carryOutFound(AlignedRows& columns) const
{
    for (int i = 0; i < m_foundCount; ++i) {
        const auto& [pair, by] = m_found[i];
        rotateColumns(columns[pair.j], columns[pair.k], m_variables, by);
    }
}

/// Rotates the loadings of these pairs, and the coefficients of those before them.
void RotationSweeps::refine(const DisjointPairs& pairs)
{
    PairTangents tangents[DisjointPairs::most];
    findTangents(m_l, pairs, m_variables, tangents);
    carryOutFound(m_b);
    findNearestRotations(pairs, tangents);
    carryOutFound(m_l);
}

/// False: cancelled.
bool RotationSweeps::refineAll()
{
    m_foundCount = 0;
    DisjointPairs pairs;
    for (int sum = 1; sum <= 2 * m_factors - 3; ++sum) {
        const int begin = std::max(0, sum - m_factors + 1);
        const int end = (sum + 1) / 2;
        if (!goOnAfterPairs(end - begin))
            return false;
        for (int j = begin; j < end; ++j) {
            const ColumnPair pair{j, sum - j};
            if (pairs.add(pair))
                continue;
            refine(pairs);
            pairs = {};
            pairs.add(pair);
        }
    }
    refine(pairs);
    carryOutFound(m_b);
    return true;
}

double RotationSweeps::plainSweep()
{
    ++m_meter.progress().sweep;
    if (!refineAll())
        return cancelledTotal;
    double criterion = 0.0;
    int j = 0;
    for (; j + 2 < m_factors; j += 2) {
        const Criteria criteria = columnCriteria(m_l[j], m_l[j + 1], m_variables);
        criterion += criteria.x;
        criterion += criteria.y;
    }
    if (j + 1 < m_factors)
        criterion += criterionOf(j);
    return criterion + criterionOf(m_factors);
}

} // namespace pelmora
