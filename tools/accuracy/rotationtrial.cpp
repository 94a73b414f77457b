// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "rotationtrial.h"

#include "rotationproblem.h"

#include "numerics/rotation.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>

namespace pelmora {

namespace {

/// Twice the longest run known to end, and far more where sweeps are cheap.
int sweepBound(int p, int m)
{
    return int(std::clamp(3e8 / (double(m) * m * p), 10000.0, 100000.0));
}

bool hasNan(const Matrix& a)
{
    for (int i = 0; i < a.rows(); ++i)
        if (std::any_of(a[i], a[i] + a.columns(), [](double x) { return std::isnan(x); }))
            return true;
    return false;
}

bool sameBits(const Matrix& a, const Matrix& b)
{
    for (int i = 0; i < a.rows(); ++i)
        if (std::memcmp(a[i], b[i], sizeof(double) * std::size_t(a.columns())) != 0)
            return false;
    return true;
}

double steepestPair(const Matrix& l, int m)
{
    long double steepest = 0.0L;
    for (int j = 0; j < m; ++j)
        for (int k = j + 1; k < m; ++k)
            steepest = std::max(steepest, std::fabs(pairPosition(l, j, k).slope));
    return double(steepest / meanSquareCommunality(l, m));
}

} // namespace

RotationTrial tryRotation(const Matrix& allLoadings, int m, int method)
{
    const int p = allLoadings.rows();
    Matrix l = loadingsToRotate(allLoadings, m);
    Matrix companion = unitColumns(p, m);
    Matrix plainL = l.clone();
    Matrix plainCompanion = companion.clone();

    const auto start = std::chrono::steady_clock::now();
    rotate(l.rowPointers(), companion.rowPointers(), m, p, method);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;

    RotationTrial trial{rotatePlainly(plainL, plainCompanion, m, method, sweepBound(p, m)),
                        elapsed.count()};
    trial.madeNan = hasNan(l);
    trial.untouched = sameBits(l, plainL) && sameBits(companion, plainCompanion);
    trial.steepestPair = steepestPair(l, m);
    if (!trial.plain.ended) {
        const auto [low, high] = std::minmax(trial.plain.last, trial.plain.lastButOne);
        const long double reached = relativeCriterion(l, m);
        trial.shortfall = double(method == VarimaxRotation ? high - reached : reached - low);
    }
    return trial;
}

} // namespace pelmora
