// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "rotationproblem.h"

#include <algorithm>
#include <cmath>

namespace pelmora {

Matrix unitColumns(int rows, int columns)
{
    Matrix result(rows, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            result[i][j] = i == j ? 1.0 : 0.0;
    return result;
}

long double totalCriterion(const Matrix& l, int m)
{
    const int p = l.rows();
    long double total = 0.0L;
    for (int j = 0; j < m; ++j) {
        long double squares = 0.0L;
        long double fourths = 0.0L;
        for (int i = 0; i < p; ++i) {
            const long double square = static_cast<long double>(l[i][j]) * l[i][j];
            squares += square;
            fourths += square * square;
        }
        total += fourths / p - squares * squares / p / p;
    }
    return total;
}

double PairPosition::angle() const
{
    return amplitude == 0.0L
               ? 0.0
               : double(std::asin(std::min(std::fabs(slope) / (4.0L * amplitude), 1.0L)) / 4.0L);
}

PairPosition pairPosition(const Matrix& l, int j, int k)
{
    // With u = x^2 - y^2 and w = x y the sum V(j) + V(k) at angle phi is, but for a constant,
    // cosine * cos(4 phi) + sine * sin(4 phi).
    const int p = l.rows();
    long double sumU = 0.0L, sumW = 0.0L, sumUU = 0.0L, sumWW = 0.0L, sumUW = 0.0L;
    for (int i = 0; i < p; ++i) {
        const long double x = l[i][j];
        const long double y = l[i][k];
        const long double u = (x - y) * (x + y);
        const long double w = x * y;
        sumU += u;
        sumW += w;
        sumUU += u * u;
        sumWW += w * w;
        sumUW += u * w;
    }
    const long double cosine =
        0.25L * ((sumUU - 4.0L * sumWW) - (sumU * sumU - 4.0L * sumW * sumW) / p) / p;
    const long double sine = (sumUW - sumU * sumW / p) / p;
    return {4.0L * sine, std::hypot(cosine, sine), cosine > 0.0L};
}

} // namespace pelmora
