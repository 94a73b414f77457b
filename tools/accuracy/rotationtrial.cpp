// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "rotationtrial.h"

#include "rotationproblem.h"

#include "numerics/factoranalysis.h"
#include "numerics/rotation.h"
#include "plain/numerics.h"

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

/// Rotates by plain sweeps, @p bound at most, and compares.
void compareWithPlain(RotationTrial& trial, const Matrix& allLoadings, const Matrix& l,
                      const Matrix& companion, int m, int method, int bound)
{
    Matrix plainL = loadingsToRotate(allLoadings, m);
    Matrix plainCompanion = unitColumns(l.rows(), m);
    trial.plain = rotatePlainly(plainL, plainCompanion, m, method, bound);
    trial.untouched = sameBits(l, plainL) && sameBits(companion, plainCompanion);
    trial.shortfall = 0.0;
    if (trial.plain.ended)
        return;
    const auto [low, high] = std::minmax(trial.plain.last, trial.plain.lastButOne);
    const long double reached = relativeCriterion(l, m);
    trial.shortfall = double(method == VarimaxRotation ? high - reached : reached - low);
}

} // namespace

RotationTrial tryRotation(const Matrix& allLoadings, int m, int method)
{
    const int p = allLoadings.rows();
    Matrix l = loadingsToRotate(allLoadings, m);
    Matrix companion = unitColumns(p, m);

    RotationTrial trial;
    const auto start = std::chrono::steady_clock::now();
    rotate(l.rowPointers(), companion.rowPointers(), m, p, method);
    trial.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    trial.madeNan = hasNan(l);
    trial.steepestPair = steepestPair(l, m);
    compareWithPlain(trial, allLoadings, l, companion, m, method, sweepBound(p, m));
    // Plain sweeps that did not end within the bound may end by themselves after it.
    if (trial.isWorse())
        compareWithPlain(trial, allLoadings, l, companion, m, method, int(plain::mostSweeps(m, p)));
    return trial;
}

} // namespace pelmora
