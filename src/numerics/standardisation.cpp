// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/standardisation.h"

namespace pelmora {

namespace {

void standardiseCase(const double* values, const Standardisation& used, double* zScores)
{
    const double* means = used.means.data();
    const double* scales = used.scales.data();
    for (int j = 0, p = used.means.size(); j < p; ++j)
        zScores[j] = (values[j] - means[j]) * scales[j];
}

} // namespace

void standardise(const RawScores& raw, int first, int count, Matrix& zScores)
{
    const Matrix& data = *raw.data;
    if (!raw.rowWise) {
        for (int i = 0; i < count; ++i)
            standardiseCase(data[first + i], *raw.used, zScores[i]);
        return;
    }
    for (int j = 0; j < data.rows(); ++j) {
        const double mean = raw.used->means[j];
        const double scale = raw.used->scales[j];
        for (int i = 0; i < count; ++i)
            zScores[i][j] = (data[j][first + i] - mean) * scale;
    }
}

} // namespace pelmora
