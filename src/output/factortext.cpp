// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/factortext.h"

#include "output/numbertext.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace {

std::string numberField(double x, unsigned decimals)
{
    return numbertext::rightAligned(numbertext::general(numbertext::rounded(x, decimals)),
                                    decimals + 5);
}

std::string scoreText(double x, unsigned decimals)
{
    return numbertext::fixed(x, decimals).toStdString();
}

} // namespace

void writeLoadings(std::ostream& out, const NamedMatrix& loadings, int numberOfFactors,
                   unsigned decimals)
{
    const int variables = loadings.values.rows();
    std::vector<double> sumsOfSquares(static_cast<std::size_t>(numberOfFactors));
    for (int i = 0; i < variables; ++i) {
        double communality = 0.0;
        for (int j = 0; j < numberOfFactors; ++j) {
            const double a = loadings.values[i][j];
            communality += a * a;
            sumsOfSquares[static_cast<std::size_t>(j)] += a * a;
            out << numberField(a, decimals) << ' ';
        }
        out << " | " << numberField(communality, decimals) << " | "
            << loadings.names[static_cast<std::size_t>(i)] << '\n';
    }
    out << std::string((sumsOfSquares.size() + 1) * (decimals + 6), '-') << "----\n";
    double total = 0.0;
    for (double sum : sumsOfSquares) {
        total += sum;
        out << numberField(100.0 * sum / variables, decimals) << ' ';
    }
    out << " | " << numberField(100.0 * total / variables, decimals) << '\n';
}

void writeScores(std::ostream& out, const pelmora::Matrix& scores, unsigned decimals)
{
    std::size_t longest = 0;
    for (int i = 0; i < scores.rows(); ++i)
        for (int j = 0; j < scores.columns(); ++j)
            longest = std::max(longest, scoreText(scores[i][j], decimals).size());
    for (int i = 0; i < scores.rows(); ++i) {
        for (int j = 0; j < scores.columns(); ++j)
            out << numbertext::rightAligned(scoreText(scores[i][j], decimals), longest + 1);
        out << '\n';
    }
}
