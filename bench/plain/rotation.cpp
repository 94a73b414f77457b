// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/numerics.h"

#include "numerics/owners.h"
#include "numerics/rotation.h"

#include <cmath>
#include <cstdint>
#include <utility>

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

bool isWorse(double trial, double current, int method)
{
    if (method == VarimaxRotation)
        return trial < current;
    return method == PelmoraRotation && trial > current;
}

double sweep(double** l, double** b, int m, int p, int method, bool methodAware)
{
    Matrix workL(p, 2);
    Matrix workB(p, 2);
    if (workL.isNull() || workB.isNull())
        return std::nan("");
    double criterion = 0.0;
    for (int j = 0; j < m - 1; ++j) {
        for (int k = j + 1; k < m; ++k) {
            double angle1 = 0.0;
            double angle2 = 0.0;
            pair_angles(l, j, k, p, angle1, angle2);
            double angle = angle1;
            if (staysPut(l, j, k, p, angle))
                continue;
            rotateInto(workL.rowPointers(), l, j, k, p, angle);
            if (methodAware) {
                const double current = column_criterion(l, j, p) + column_criterion(l, k, p);
                const double trial = column_criterion(workL.rowPointers(), 0, p) +
                                     column_criterion(workL.rowPointers(), 1, p);
                if (isWorse(trial, current, method)) {
                    angle = angle2;
                    if (staysPut(l, j, k, p, angle))
                        continue;
                    rotateInto(workL.rowPointers(), l, j, k, p, angle);
                }
            }
            rotateInto(workB.rowPointers(), b, j, k, p, angle);
            copyBack(workL.rowPointers(), l, j, k, p);
            copyBack(workB.rowPointers(), b, j, k, p);
        }
        criterion += column_criterion(l, j, p);
    }
    return criterion + column_criterion(l, m, p);
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
    return sweep(l, b, m, p, method, true);
}

void rotate(double** l, double** b, int m, int p, int method)
{
    if (m <= 1)
        return;
    const double c1 = rotation_sweep(l, b, m, p, method);
    double previous = rotation_sweep(l, b, m, p, method);
    if (std::fabs(c1 - previous) <= 1e-12)
        return;
    double difference = 0.0;
    do {
        const double criterion = sweep(l, b, m, p, method, false);
        difference = std::fabs(previous - criterion);
        previous = criterion;
    } while (difference > 1e-12);
}

} // namespace pelmora::plain
