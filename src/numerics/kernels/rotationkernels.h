// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/pairangles.h"

namespace pelmora {

/// A plane rotation of two columns by its sine and cosine.
struct ColumnRotation
{
    double s;
    double c;
};

/// Two pairs of columns that are rotated in one pass, and the pairs that come next.
struct TwoPairs
{
    double* x; ///< the first pair
    double* y;
    double* otherX; ///< the second pair
    double* otherY;
    const double* next; ///< x meets it next, while otherX meets y
};

// Columns are contiguous, p elements long and followed by zeros up to a multiple of four (see
// AlignedRows). Sums run in the order of the rows, always, since the end of long rotations depends
// on every bit of them.

PairSums pairSums(const double* x, const double* y, int p);

/// Two pairs at once: (x, next) and (otherX, y).
void sumTwoPairs(const TwoPairs& pairs, int p, PairSums& sums, PairSums& otherSums);

/// V(j) = sum(l^4) / p - sum(l^2)^2 / p^2 of two columns.
struct Criteria
{
    double x;
    double y;

    double sum() const { return x + y; }
};

Criteria columnCriteria(const double* x, const double* y, int p);

/// The criteria of a pair, and its sums in the same pass.
Criteria criteriaAndSums(const double* x, const double* y, int p, PairSums& sums);

void rotateColumns(double* x, double* y, int p, ColumnRotation rotation);

/// Leaves the columns alone and writes the rotated ones to @p newX and @p newY; returns their
/// criteria.
Criteria rotateColumnsInto(const double* x, const double* y, int p, ColumnRotation rotation,
                           double* newX, double* newY);

/// Rotates both pairs, and sums up the next two from the results.
void rotateTwoPairs(const TwoPairs& pairs, int p, ColumnRotation rotation,
                    ColumnRotation otherRotation, PairSums& sums, PairSums& otherSums);

} // namespace pelmora
