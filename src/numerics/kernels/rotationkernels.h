// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/alignedrows.h"
#include "numerics/kernels/disjointpairs.h"
#include "numerics/kernels/pairangles.h"

namespace pelmora {

/// A plane rotation of two columns by its sine and cosine.
struct ColumnRotation
{
    double s;
    double c;
};

// Columns are contiguous, p elements long and followed by zeros up to a multiple of eight (see
// AlignedRows). Sums run in the order of the rows, always, since the end of long rotations depends
// on every bit of them.

PairSums pairSums(const double* x, const double* y, int p);

/// Of all pairs, side by side.
void findTangents(const AlignedRows& columns, const DisjointPairs& pairs, int p,
                  PairTangents (&tangents)[DisjointPairs::most]);

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

} // namespace pelmora
