// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/factortext.h"

#include "output/loadingsums.h"
#include "output/numbertext.h"

#include <algorithm>
#include <ostream>

namespace {

std::string numberField(double x, unsigned decimals)
{
    return numbertext::rightAligned(numbertext::general(numbertext::rounded(x, decimals)),
                                    decimals + 5);
}

} // namespace

void writeLoadings(std::ostream& out, const pelmora::Matrix& loadings, const VariableNames& names,
                   unsigned decimals)
{
    const LoadingSums sums = loadingSums(loadings, loadings.columns());
    for (int i = 0; i < loadings.rows(); ++i) {
        const auto variable = static_cast<std::size_t>(i);
        for (int j = 0; j < loadings.columns(); ++j)
            out << numberField(loadings[i][j], decimals) << ' ';
        out << " | " << numberField(sums.communalities[variable], decimals) << " | "
            << names[variable] << '\n';
    }
    out << std::string((sums.explainedVariance.size() + 1) * (decimals + 6), '-') << "----\n";
    for (const double variance : sums.explainedVariance)
        out << numberField(variance, decimals) << ' ';
    out << " | " << numberField(sums.totalVariance, decimals) << '\n';
}

void writeScores(std::ostream& out, const pelmora::Matrix& scores, unsigned decimals)
{
    std::size_t longest = 0;
    for (int i = 0; i < scores.rows(); ++i)
        for (int j = 0; j < scores.columns(); ++j)
            longest = std::max(longest, numbertext::fixedBytes(scores[i][j], decimals).size());
    for (int i = 0; i < scores.rows(); ++i) {
        for (int j = 0; j < scores.columns(); ++j)
            out << numbertext::rightAligned(numbertext::fixedBytes(scores[i][j], decimals),
                                            longest + 1);
        out << '\n';
    }
}
