// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pelmora {

struct NamedMatrix
{
    std::string name;
    Matrix a;
};

/// Numbers in rows, as a file holds them. Comments ("#") and names are set aside, and a
/// lower triangle is completed. Throws std::runtime_error when there is no matrix in the file.
Matrix readMatrix(const std::filesystem::path& file);

/// Writes so many digits that readMatrix() gives the same values.
void writeMatrix(const std::filesystem::path& file, const Matrix& a, int columns);

/// Correlations of published data: the samples in @p dataFolder and the "*.published" of @p work.
std::vector<NamedMatrix> publishedMatrices(const std::filesystem::path& dataFolder,
                                           const std::filesystem::path& work);

/// Generated matrices of every kind that makes an eigenproblem easy or hard, 5 to 500 variables.
std::vector<NamedMatrix> generatedMatrices();

/// Covariances of well-conditioned variables whose standard deviations differ by many orders of
/// magnitude: their smallest eigenvalues are determined as precisely as the largest. Two matrices
/// of correlations behind them are the counterexample.
std::vector<NamedMatrix> gradedMatrices();

} // namespace pelmora
