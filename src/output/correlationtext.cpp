// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/correlationtext.h"

#include "output/numbertext.h"

#include <algorithm>
#include <ostream>

namespace {

/// A value as files hold it. The general form would give very small and very large values an
/// exponent, which the readers refuse.
std::string fileText(double value)
{
    const std::string text = numbertext::general(value);
    return text.find('e') == std::string::npos ? text : numbertext::shortest(value);
}

} // namespace

void writeCorrelations(std::ostream& out, const pelmora::Matrix& correlations,
                       const VariableNames& names, unsigned decimals)
{
    const std::size_t width = decimals + 4;
    for (int i = 0; i < correlations.rows(); ++i) {
        std::string line;
        for (int j = 0; j < correlations.columns(); ++j) {
            // Both triangles from the upper one, which the decomposition reads: they may differ by
            // a last bit, which rounding could turn into an asymmetry that the reader refuses.
            const double value = correlations[std::min(i, j)][std::max(i, j)];
            const std::string text = fileText(numbertext::rounded(value, decimals));
            // A covariance may fill the field: one blank is written before it nevertheless.
            line += numbertext::rightAligned(text, std::max(width, text.size() + 1));
        }
        out << line + '\n';
    }
    writeNameHeader(out, names);
}
