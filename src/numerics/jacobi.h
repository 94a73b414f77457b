// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Eigenvalues and eigenvectors of a symmetric matrix by cyclic Jacobi rotations.
/// @param a  n x n; only the upper triangle is read, and it is destroyed
/// @param d  receives the n eigenvalues, unsorted
/// @param v  n x n, receives the eigenvectors: column k belongs to d[k]. It starts as the diagonal
///           of a, not as the identity, on purpose: for a correlation matrix the two are equal.
/// @returns the number of rotations
/// Where 499 sweeps do not suffice, reports "Error: no convergence in finding eigen values."; d and
/// v then hold the values of the last sweep. After a reported allocation failure both are NaN;
/// cancelled (see progress.h), they are of no use.
/// Jacobi, C. G. J. (1846), J. reine angew. Math. 30, 51-94.
/// Thresholds after Rutishauser, H. (1966), Numer. Math. 9, 1-10.
int jacobi(double** a, int n, double* d, double** v);

/// Sorts eigenpairs in place by descending eigenvalue.
/// @param d  n eigenvalues
/// @param v  n x n, column k belongs to d[k]; columns move along
/// Among equal values the last one wins, on purpose: the order of tied factors depends on it. NaN
/// is never chosen.
void sort_eigenpairs(double* d, double** v, int n);

} // namespace pelmora
