// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Makes a matrix(0, nrow - 1, 0, ncol - 1) of an element block that already holds its numbers.
/// @param block  one malloc'ed block of nrow * ncol + 1 doubles: a spare one, then the rows one by
///               one; free_matrix(m, 0, 0) frees it together with the row pointers
/// On failure reports "allocation failure 1 in matrix()" and returns null; the block then still
/// belongs to the caller.
double** matrix_from_block(double* block, int nrow, int ncol);

} // namespace pelmora
