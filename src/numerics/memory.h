// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Allocates a vector of doubles valid for indices nl..nh; contents uninitialised.
/// On failure reports "allocation failure in dvector()" and returns null.
double* dvector(int nl, int nh);

/// Frees a vector made by dvector() with the same lower bound; null is ignored.
void free_dvector(double* v, int nl);

/// Allocates row pointers for rows nrl..nrh and columns ncl..nch over one contiguous element block,
/// rows one after another; contents uninitialised.
/// On failure reports "allocation failure 1 in matrix()" (row pointers) and
/// "allocation failure 2 in matrix()" (elements), and returns null.
double** matrix(int nrl, int nrh, int ncl, int nch);

/// Makes a matrix(0, nrow - 1, 0, ncol - 1) of an element block that already holds its numbers.
/// @param block  one malloc'ed block of nrow * ncol + 1 doubles: a spare one, then the rows one by
///               one; free_matrix(m, 0, 0) frees it together with the row pointers
/// On failure reports "allocation failure 1 in matrix()" and returns null; the block then still
/// belongs to the caller.
double** matrix_from_block(double* block, int nrow, int ncol);

/// Frees a matrix made by matrix() with the same lower bounds; null is ignored.
void free_matrix(double** m, int nrl, int ncl);

} // namespace pelmora
