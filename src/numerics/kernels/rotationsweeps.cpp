// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// How the sweeps use the loops of rotationkernels.cpp. The pairs keep the order of the plain loops,
// with one exception, which changes no bit: pairs (j, k) and (j + 1, k - 1) have no column in
// common, so the plain sweep rotates factors j and j + 1 against the others in one pass, the second
// one column behind the first.

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
    , m_work(3, p)
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

std::optional<ColumnRotation> RotationSweeps::nearestRotation(const PairSums& sums, int j,
                                                              int k) const
{
    return rotationBy(nearestAngle(sums, m_variables), j, k);
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
    const auto [angle1, angle2] = stationaryAngles(sums, m_variables);
    const std::optional<ColumnRotation> first = rotationBy(angle1, j, k);
    if (first && isBetter(current, trialOf(*first, j, k)))
        return rotationBy(angle2, j, k);
    return first;
}

std::optional<ColumnRotation> RotationSweeps::improvingRotation(int j, int k)
{
    PairSums sums;
    const double current = criteriaAndSums(m_l[j], m_l[k], m_variables, sums).sum();
    const auto [angle1, angle2] = stationaryAngles(sums, m_variables);
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

void RotationSweeps::rotateToNearest(int j, int k)
{
    if (const auto nearest = nearestRotation(pairSums(m_l[j], m_l[k], m_variables), j, k))
        rotate(j, k, *nearest);
}

/// Rotates pair (j, k) and, unless it is too early for it, pair (j + 1, k - 1), whose sums are
/// given. Leaves the sums of the next pairs (j, k + 1) and (j + 1, k). After the last column comes
/// one of zeros.
void RotationSweeps::advance(int j, int k, PairSums& sums, std::optional<PairSums>& otherSums)
{
    const int p = m_variables;
    const auto first = nearestRotation(sums, j, k);
    const auto second = otherSums ? nearestRotation(*otherSums, j + 1, k - 1) : std::nullopt;
    const TwoPairs pairs{m_l[j], m_l[k], m_l[j + 1], m_l[k - 1],
                         k + 1 < m_factors ? m_l[k + 1] : m_work[2]};
    if (first && second) {
        rotateTwoPairs(pairs, p, *first, *second, sums, *otherSums);
        rotateColumns(m_b[j], m_b[k], p, *first);
        rotateColumns(m_b[j + 1], m_b[k - 1], p, *second);
        return;
    }
    if (first)
        rotate(j, k, *first);
    if (second)
        rotate(j + 1, k - 1, *second);
    sumTwoPairs(pairs, p, sums, otherSums.emplace());
}

void RotationSweeps::refineTwoFactors(int j)
{
    rotateToNearest(j, j + 1);
    PairSums sums = pairSums(m_l[j], m_l[j + 2], m_variables);
    std::optional<PairSums> otherSums;
    for (int k = j + 2; k < m_factors; ++k)
        advance(j, k, sums, otherSums);
    if (const auto last = nearestRotation(*otherSums, j + 1, m_factors - 1))
        rotate(j + 1, m_factors - 1, *last);
}

double RotationSweeps::plainSweep()
{
    ++m_meter.progress().sweep;
    double criterion = 0.0;
    int j = 0;
    for (; j + 2 < m_factors; j += 2) {
        if (!goOnAfterPairs(2 * (m_factors - j)))
            return cancelledTotal;
        refineTwoFactors(j);
        const Criteria criteria = columnCriteria(m_l[j], m_l[j + 1], m_variables);
        criterion += criteria.x;
        criterion += criteria.y;
    }
    if (!goOnAfterPairs(1))
        return cancelledTotal;
    if (j + 1 < m_factors) {
        rotateToNearest(j, j + 1);
        criterion += criterionOf(j);
    }
    return criterion + criterionOf(m_factors);
}

} // namespace pelmora
