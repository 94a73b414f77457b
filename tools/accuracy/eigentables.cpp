// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "eigentables.h"

#include "solvers.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <iomanip>
#include <ostream>
#include <stdexcept>

namespace pelmora {

namespace {

using Solver = Eigenpairs (*)(const Matrix&);
constexpr Solver solvers[] = {byJacobi, byDsyev, byDsyevd};
constexpr int solverCount = 3;

std::filesystem::path gradedFile(const std::filesystem::path& work, std::size_t index,
                                 const char* extension)
{
    return work / ("graded-" + std::to_string(index) + extension);
}

/// More digits than double holds, so that what is measured is not the reading.
std::vector<long double> readDescending(const std::filesystem::path& file)
{
    std::ifstream in(file);
    std::vector<long double> values;
    for (long double value = 0.0L; in >> value;)
        values.push_back(value);
    if (values.empty())
        throw std::runtime_error("no eigenvalues in " + file.string());
    std::sort(values.begin(), values.end(), std::greater<>());
    return values;
}

double worstRelativeError(Vector values, const std::vector<long double>& trueValues)
{
    std::sort(values.begin(), values.end(), std::greater<>());
    long double worst = 0.0L;
    for (int k = 0; k < values.size(); ++k)
        worst = std::max(worst, std::fabs(values[k] / trueValues[std::size_t(k)] - 1.0L));
    return double(worst);
}

} // namespace

void writeEigenTable(std::ostream& out, const std::vector<NamedMatrix>& matrices)
{
    out << "| matrix | n | residual: Pelmora | dsyev | dsyevd "
           "| orthogonality: Pelmora | dsyev | dsyevd |\n"
           "|---|--:|--:|--:|--:|--:|--:|--:|\n"
        << std::fixed << std::setprecision(2);
    double worst[2 * solverCount] = {};
    for (const NamedMatrix& matrix : matrices) {
        double measured[2 * solverCount];
        for (int k = 0; k < solverCount; ++k) {
            const Eigenpairs pairs = solvers[k](matrix.a);
            measured[k] = scaledResidual(matrix.a, pairs);
            measured[solverCount + k] = scaledDeparture(pairs.vectors);
        }
        out << "| " << matrix.name << " | " << matrix.a.rows();
        for (int k = 0; k < 2 * solverCount; ++k) {
            // Not a number counts as worst.
            worst[k] = measured[k] <= worst[k] ? worst[k] : measured[k];
            out << " | " << measured[k];
        }
        out << " |\n" << std::flush;
    }
    out << "| **largest** | ";
    for (const double value : worst)
        out << " | **" << value << "**";
    out << " |\n";
}

void writeGradedMatrices(const std::filesystem::path& work)
{
    const std::vector<NamedMatrix> matrices = gradedMatrices();
    for (std::size_t i = 0; i < matrices.size(); ++i)
        writeMatrix(gradedFile(work, i, ".matrix"), matrices[i].a, matrices[i].a.columns());
}

void writeGradedTable(std::ostream& out, const std::filesystem::path& work)
{
    out << "| variables, by size | n | largest / smallest eigenvalue | Pelmora | dsyev | dsyevd |\n"
           "|---|--:|--:|--:|--:|--:|\n"
        << std::scientific << std::setprecision(1);
    const std::vector<NamedMatrix> matrices = gradedMatrices();
    for (std::size_t i = 0; i < matrices.size(); ++i) {
        const Matrix& a = matrices[i].a;
        const std::vector<long double> trueValues =
            readDescending(gradedFile(work, i, ".eigenvalues"));
        if (int(trueValues.size()) != a.rows())
            throw std::runtime_error("eigenvalues of another matrix");
        out << "| " << matrices[i].name << " | " << a.rows() << " | "
            << double(trueValues.front() / trueValues.back());
        for (const Solver solve : solvers)
            out << " | " << worstRelativeError(solve(a).values, trueValues);
        out << " |\n";
    }
}

} // namespace pelmora
