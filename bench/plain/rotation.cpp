// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/numerics.h"

#include "numerics/owners.h"
#include "numerics/rotation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace pelmora::plain {

namespace {

bool hasNan(const double* const* l, int j, int p)
{
    for (int i = 0; i < p; ++i)
        if (std::isnan(l[i][j]))
            return true;
    return false;
}

double sum(const Vector& terms)
{
    double result = 0.0;
    for (double term : terms)
        result += term;
    return result;
}

/// A pair without a usable angle stays as it stands, unless there is NaN to spread.
bool staysPut(const double* const* l, int j, int k, int p, double angle)
{
    return std::isnan(angle) && !hasNan(l, j, p) && !hasNan(l, k, p);
}

void rotateInto(double** work, const double* const* l, int j, int k, int p, double angle)
{
    const double s = std::sin(angle);
    const double c = std::cos(angle);
    for (int i = 0; i < p; ++i) {
        const double x = l[i][j];
        const double y = l[i][k];
        work[i][0] = c * x + s * y;
        work[i][1] = -(x * s) + y * c;
    }
}

void copyBack(const double* const* work, double** l, int j, int k, int p)
{
    for (int i = 0; i < p; ++i) {
        l[i][j] = work[i][0];
        l[i][k] = work[i][1];
    }
}

struct Sweeps
{
    double** l;
    double** b;
    const int m;
    const int p;
    const int method;
    Matrix workL{p, 2};
    Matrix workB{p, 2};

    bool isBetter(double criterion, double other) const
    {
        if (method == VarimaxRotation)
            return criterion > other;
        return method == PelmoraRotation && criterion < other;
    }

    double total() const
    {
        double sum = 0.0;
        for (int j = 0; j < m; ++j)
            sum += plain::column_criterion(l, j, p);
        return sum;
    }

    double currentCriterion(int j, int k) const
    {
        return plain::column_criterion(l, j, p) + plain::column_criterion(l, k, p);
    }

    double trialCriterion() const
    {
        const double* const* work = workL.rowPointers();
        return plain::column_criterion(work, 0, p) + plain::column_criterion(work, 1, p);
    }

    void rotateBoth(int j, int k, double angle)
    {
        rotateInto(workL.rowPointers(), l, j, k, p, angle);
        rotateInto(workB.rowPointers(), b, j, k, p, angle);
    }

    void take(int j, int k)
    {
        copyBack(workL.rowPointers(), l, j, k, p);
        copyBack(workB.rowPointers(), b, j, k, p);
    }

    bool rotateByMethod(int j, int k, double angle1, double angle2)
    {
        if (staysPut(l, j, k, p, angle1))
            return false;
        rotateBoth(j, k, angle1);
        if (isBetter(currentCriterion(j, k), trialCriterion())) {
            if (staysPut(l, j, k, p, angle2))
                return false;
            rotateBoth(j, k, angle2);
        }
        return true;
    }

    bool rotateToNearest(int j, int k, double angle1)
    {
        if (staysPut(l, j, k, p, angle1))
            return false;
        rotateBoth(j, k, angle1);
        return true;
    }

    bool rotateToImprove(int j, int k, double angle1, double angle2)
    {
        for (double angle : {angle1, angle2}) {
            if (staysPut(l, j, k, p, angle))
                continue;
            rotateBoth(j, k, angle);
            if (isBetter(trialCriterion(), currentCriterion(j, k)))
                return true;
        }
        return false;
    }

    template <typename Choice>
    double sweep(Choice choice)
    {
        if (workL.isNull() || workB.isNull())
            return std::nan("");
        double criterion = 0.0;
        for (int j = 0; j < m - 1; ++j) {
            for (int k = j + 1; k < m; ++k) {
                double angle1 = 0.0;
                double angle2 = 0.0;
                plain::pair_angles(l, j, k, p, angle1, angle2);
                if (choice(j, k, angle1, angle2))
                    take(j, k);
            }
            criterion += plain::column_criterion(l, j, p);
        }
        return criterion + plain::column_criterion(l, m, p);
    }

    double methodAwareSweep()
    {
        return sweep([this](int j, int k, double angle1, double angle2) {
            return rotateByMethod(j, k, angle1, angle2);
        });
    }

    double plainSweep()
    {
        return sweep(
            [this](int j, int k, double angle1, double) { return rotateToNearest(j, k, angle1); });
    }

    void improvingSweep()
    {
        sweep([this](int j, int k, double angle1, double angle2) {
            return rotateToImprove(j, k, angle1, angle2);
        });
    }
};

/// Two states that alternate while their totals differ, in many sweeps on end.
bool isSwinging(const std::vector<double>& totals)
{
    constexpr std::size_t swings = 1000;
    if (totals.size() < swings + 2)
        return false;
    return std::all_of(totals.end() - swings, totals.end(), [](const double& total) {
        const double before = *(&total - 1);
        const double beforeThat = *(&total - 2);
        const double scale = std::max(1.0, std::fabs(total));
        return std::fabs(total - before) > 1e-9 * scale &&
               std::fabs(total - beforeThat) <= 1e-13 * scale;
    });
}

/// From the better of two successive states to where no pair can be improved any more.
void improve(Sweeps& sweeps, long most)
{
    const double before = sweeps.total();
    sweeps.plainSweep();
    if (sweeps.isBetter(before, sweeps.total()))
        sweeps.plainSweep();
    double last = 0.0;
    double total = sweeps.total();
    do {
        last = total;
        sweeps.improvingSweep();
        total = sweeps.total();
    } while (--most > 0 && std::fabs(total - last) > 1e-12 * std::max(1.0, std::fabs(total)));
}

} // namespace

double column_criterion(const double* const* l, int j, int p)
{
    double squares = 0.0;
    double fourths = 0.0;
    for (int i = 0; i < p; ++i) {
        const double square = l[i][j] * l[i][j];
        squares += square;
        fourths += square * square;
    }
    return fourths / p - squares * squares / double(std::int64_t(p) * p);
}

void pair_angles(const double* const* l, int j, int k, int p, double& angle1, double& angle2)
{
    Vector u(p);
    Vector w(p);
    Vector uw(p);
    Vector e(p);
    if (u.isNull() || w.isNull() || uw.isNull() || e.isNull()) {
        angle1 = angle2 = std::nan("");
        return;
    }
    for (int i = 0; i < p; ++i) {
        const double x = l[i][j];
        const double y = l[i][k];
        u[i] = x * x - y * y;
        w[i] = x * y;
        uw[i] = u[i] * w[i];
        e[i] = -0.5 * (u[i] * u[i]) + w[i] * (w[i] + w[i]);
    }
    const double A = sum(u);
    const double W = sum(w);
    const double C = sum(uw);
    const double E = sum(e);
    const double D = A * W / p - C;
    const double b = 0.5 * (-(A * A / (2.0 * p) + -2.0 * W * W / p + E) / D);
    const double q = std::sqrt(b * b - -D / D);
    angle1 = 0.5 * std::atan(b - q);
    angle2 = 0.5 * std::atan(b + q);
    if (std::fabs(angle1) > std::fabs(angle2))
        std::swap(angle1, angle2);
}

double rotation_sweep(double** l, double** b, int m, int p, int method)
{
    Sweeps sweeps{l, b, m, p, method};
    return sweeps.methodAwareSweep();
}

void rotate(double** l, double** b, int m, int p, int method)
{
    if (m <= 1)
        return;
    Sweeps sweeps{l, b, m, p, method};
    const double first = sweeps.methodAwareSweep();
    double last = sweeps.methodAwareSweep();
    if (std::fabs(last - first) <= 1e-12)
        return;
    std::vector<double> totals;
    for (;;) {
        totals.push_back(sweeps.plainSweep());
        if (!(std::fabs(totals.back() - last) > 1e-12))
            return;
        if (isSwinging(totals) || long(totals.size()) >= mostSweeps(m, p))
            return improve(sweeps, mostSweeps(m, p) / 20);
        last = totals.back();
    }
}

long mostSweeps(int m, int p)
{
    const double cost = m * (m - 1.0) / 2.0 * (p + 100.0);
    return long(std::clamp(2e10 / cost, 1e5, 1e6));
}

} // namespace pelmora::plain
