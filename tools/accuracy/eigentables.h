// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "namedmatrix.h"

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace pelmora {

/// One line per matrix: residual and departure from orthogonality, beside those of LAPACK.
void writeEigenTable(std::ostream& out, const std::vector<NamedMatrix>& matrices);

/// Writes matrices that eigenvalues.py reads.
void writeGradedMatrices(const std::filesystem::path& work);

/// One line per graded matrix: the worst relative error of an eigenvalue, beside those of LAPACK.
/// The true eigenvalues are in the "*.eigenvalues" of @p work.
void writeGradedTable(std::ostream& out, const std::filesystem::path& work);

} // namespace pelmora
