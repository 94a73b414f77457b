// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/correlationdata.h"

#include "settings/numbertext.h"

#include <algorithm>
#include <cmath>
#include <ostream>

bool CorrelationData::testSymmetry()
{
    m_asymmetry.clear();
    const pelmora::Matrix& m = matrix();
    const int order = std::min(m.rows(), m.columns());
    for (int i = 0; i < order; ++i) {
        for (int j = i + 1; j < order; ++j) {
            if (std::abs(m[i][j] - m[j][i]) > 1e-10) {
                m_asymmetry = tr("Not symmetric at row %1 and col %2").arg(i + 1).arg(j + 1);
                return false;
            }
        }
    }
    return true;
}

namespace {

/// A value as files hold it. The general form would give very small and very large values an
/// exponent, which the readers refuse.
std::string fileText(double value)
{
    const std::string text = numbertext::general(value);
    return text.find('e') == std::string::npos ? text : numbertext::shortest(value);
}

} // namespace

void writeCorrelations(std::ostream& out, const CorrelationData& correlations, unsigned decimals)
{
    const std::size_t width = decimals + 4;
    const pelmora::Matrix& m = correlations.matrix();
    for (int i = 0; i < m.rows(); ++i) {
        std::string line;
        for (int j = 0; j < m.columns(); ++j) {
            // Both triangles from the upper one, which the decomposition reads: they may differ by
            // a last bit, which rounding could turn into an asymmetry that the reader refuses.
            const double value = m[std::min(i, j)][std::max(i, j)];
            const std::string text = fileText(numbertext::rounded(value, decimals));
            // A covariance may fill the field: one blank stays before it all the same.
            line += numbertext::rightAligned(text, std::max(width, text.size() + 1));
        }
        out << line + '\n';
    }
    correlations.writeNames(out);
}
