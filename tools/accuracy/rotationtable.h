// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "namedmatrix.h"

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace pelmora {

/// The published matrices and generated survey answers.
std::vector<NamedMatrix> rotationMatrices(const std::vector<NamedMatrix>& published);

/// Writes unrotated loadings that varimax.R reads.
void writeLoadings(const std::filesystem::path& work, const std::vector<NamedMatrix>& matrices);

/// Two lines per matrix, Varimax and Pelmora, rotated with the proposed number of factors. R's
/// loadings are in the "*.varimax" of @p work.
void writeRotationTable(std::ostream& out, const std::filesystem::path& work,
                        const std::vector<NamedMatrix>& matrices);

} // namespace pelmora
