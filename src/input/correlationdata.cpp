// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/correlationdata.h"

#include <algorithm>
#include <cmath>

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
