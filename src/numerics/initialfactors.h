// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Unrotated principal-component loadings: l[i][j] = sqrt(|d[j]|) * v[i][j].
/// @param d  n eigenvalues, sorted; a negative one gives a real loading by its magnitude
/// @param v  p x n eigenvectors, column j belongs to d[j]
/// @param l  p x (at least n), receives the loadings (row variable, column factor)
/// Hotelling, H. (1933), J. Educ. Psychol. 24, 417-441.
void initial_loadings(const double* d, const double* const* v, int p, int n, double** l);

/// Score coefficients of the first m factors: b[i][j] = v[i][j] / sqrt(|d[j]|), so that the product
/// of z-scores and b has unit variance (divisor n).
/// @param b  p x m, receives the coefficients
void score_coefficients(const double* d, const double* const* v, int p, int m, double** b);

/// Share of the total variance per factor in percent, 100 d[j] / n, and its running sum.
/// Negative eigenvalues enter both with their sign.
/// @param variance, cumulative  receive n values each
void explained_variance(const double* d, int n, double* variance, double* cumulative);

} // namespace pelmora
