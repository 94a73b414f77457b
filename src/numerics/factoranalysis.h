// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"
#include "numerics/standardisation.h"

/// The steps of an analysis, from the input matrix to loadings and scores.
namespace pelmora {

/// Correlations of raw data and what standardises the data.
struct Correlations
{
    Matrix matrix; ///< p x p
    Standardisation used;
    bool isNull() const { return matrix.isNull(); }
};

/// Correlates the variables of @p data, which are its rows when @p rowWise, else its columns. The
/// data stay as they are. Null after a reported allocation failure or when cancelled.
Correlations formCorrelations(const Matrix& data, bool rowWise);

/// The eigenpairs of a correlation matrix, sorted, with the unrotated loadings of all factors.
struct Decomposition
{
    Vector eigenvalues;     ///< p, descending
    Matrix eigenvectors;    ///< p x p, column j belongs to eigenvalue j
    Matrix initialLoadings; ///< p x p, row variable, column factor
    int rotations = 0;      ///< Jacobi rotations that were needed
    bool isNull() const { return initialLoadings.isNull(); }
};

/// Decomposes a p x p correlation matrix. Null after a reported allocation failure or when
/// cancelled.
Decomposition decompose(const Matrix& correlations);

/// 3 x p: the eigenvalues, their shares of the total variance in percent, and the running sums of
/// these. Null after a reported allocation failure.
Matrix varianceTable(const Vector& eigenvalues);

/// The first m columns and the one after them, which the rotation's criterion looks at; after the
/// last factor it is a column of zeros. Null after a reported allocation failure.
Matrix loadingsToRotate(const Matrix& initialLoadings, int m);

/// Loadings, score coefficients and, for raw data, scores of the first factors.
struct Factors
{
    Matrix loadings;     ///< p x m
    Matrix coefficients; ///< p x m
    Matrix scores;       ///< cases x m; null without raw data
    bool isNull() const { return loadings.isNull(); }
};

/// Takes the first @p m factors of @p decomposition and rotates them by @p method (a
/// RotationMethod).
/// @param raw  what the scores are made of; null: no scores
/// Null after a reported allocation failure or when cancelled.
Factors extractFactors(const Decomposition& decomposition, int m, int method,
                       const RawScores& raw = {});

} // namespace pelmora
