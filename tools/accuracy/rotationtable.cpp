// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "rotationtable.h"

#include "matrices.h"
#include "rotationproblem.h"
#include "solvers.h"

#include "numerics/numberoffactors.h"
#include "numerics/rotation.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <ostream>

namespace pelmora {

namespace {

std::filesystem::path rotationFile(const std::filesystem::path& work, std::size_t index,
                                   const char* extension)
{
    return work / ("rotation-" + std::to_string(index) + extension);
}

struct Rotated
{
    Matrix loadings;
    Matrix rotation; ///< m x m
};

Rotated rotated(const Matrix& start, int m, int method)
{
    const int p = start.rows();
    Rotated result{start.clone(), Matrix(m, m)};
    Matrix companion = unitColumns(p, m);
    rotate(result.loadings.rowPointers(), companion.rowPointers(), m, p, method);
    for (int i = 0; i < m; ++i)
        std::copy_n(companion[i], m, result.rotation[i]);
    return result;
}

/// The largest change of a variable's sum of squared loadings.
double communalityChange(const Matrix& before, const Matrix& after, int m)
{
    long double largest = 0.0L;
    for (int i = 0; i < before.rows(); ++i) {
        long double change = 0.0L;
        for (int j = 0; j < m; ++j)
            change += static_cast<long double>(after[i][j]) * after[i][j] -
                      static_cast<long double>(before[i][j]) * before[i][j];
        largest = std::max(largest, std::fabs(change));
    }
    return double(largest);
}

struct WorstPair
{
    double slope = 0.0;
    double angle = 0.0;
    int wrongKind = 0;
};

WorstPair worstPair(const Matrix& l, int m, int method)
{
    WorstPair worst;
    for (int j = 0; j < m; ++j)
        for (int k = j + 1; k < m; ++k) {
            const PairPosition position = pairPosition(l, j, k);
            worst.slope = std::max(worst.slope, double(std::fabs(position.slope)));
            worst.angle = std::max(worst.angle, position.angle());
            worst.wrongKind += position.nearMaximum != (method == VarimaxRotation);
        }
    return worst;
}

void writeLine(std::ostream& out, const Matrix& start, int m, int method, const Matrix* byR)
{
    const Rotated result = rotated(start, m, method);
    const long double criterion = totalCriterion(result.loadings, m);
    const WorstPair worst = worstPair(result.loadings, m, method);
    out << (method == VarimaxRotation ? "Varimax" : "Pelmora") << " | " << std::fixed
        << std::setprecision(12) << totalCriterion(start, m) << " | " << criterion << " | "
        << std::scientific << std::setprecision(1);
    if (byR)
        out << double(criterion / totalCriterion(*byR, m) - 1.0L);
    out << " | " << worst.slope << " | " << worst.angle << " | " << worst.wrongKind << " | "
        << std::fixed << scaledDeparture(result.rotation) << " | " << std::scientific
        << communalityChange(start, result.loadings, m) << " |\n";
}

} // namespace

std::vector<NamedMatrix> rotationMatrices(const std::vector<NamedMatrix>& published)
{
    std::vector<NamedMatrix> result;
    result.reserve(published.size() + 4);
    for (const NamedMatrix& matrix : published)
        result.push_back({matrix.name, matrix.a.clone()});
    Random random(3);
    for (const int variables : {12, 40, 120, 300})
        result.push_back({"survey answers",
                          correlationsOf(factorData(random, 300, variables, variables / 6, 5))});
    return result;
}

void writeLoadings(const std::filesystem::path& work, const std::vector<NamedMatrix>& matrices)
{
    for (std::size_t i = 0; i < matrices.size(); ++i) {
        const Decomposition factors = decompose(matrices[i].a);
        writeMatrix(rotationFile(work, i, ".loadings"), factors.initialLoadings,
                    proposedFactors(factors.eigenvalues));
    }
}

void writeRotationTable(std::ostream& out, const std::filesystem::path& work,
                        const std::vector<NamedMatrix>& matrices)
{
    out << "| matrix | p | m | rotation | criterion before | after | against R | steepest pair "
           "| farthest pair | wrong kind | orthogonality | communalities |\n"
           "|---|--:|--:|---|--:|--:|--:|--:|--:|--:|--:|--:|\n";
    for (std::size_t i = 0; i < matrices.size(); ++i) {
        const Decomposition factors = decompose(matrices[i].a);
        const int m = proposedFactors(factors.eigenvalues);
        const Matrix start = loadingsToRotate(factors.initialLoadings, m);
        const Matrix byR = readMatrix(rotationFile(work, i, ".varimax"));
        for (const int method : {VarimaxRotation, PelmoraRotation}) {
            out << "| " << matrices[i].name << " | " << start.rows() << " | " << m << " | ";
            writeLine(out, start, m, method, method == VarimaxRotation ? &byR : nullptr);
        }
    }
}

} // namespace pelmora
