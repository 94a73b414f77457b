// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <QFile>
#include <QString>

#include <algorithm>
#include <cmath>
#include <vector>

/// The rows of numbers in a file, those with anything else left out; short ones end in zeros.
inline pelmora::Matrix numbersIn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot open %s", qPrintable(path));
    std::vector<std::vector<double>> rows;
    for (const QByteArray& line : file.readAll().split('\n')) {
        std::vector<double> row;
        bool isNumber = false;
        for (const QByteArray& word : line.simplified().split(' ')) {
            row.push_back(word.toDouble(&isNumber));
            if (!isNumber)
                break;
        }
        if (isNumber)
            rows.push_back(row);
    }
    pelmora::Matrix result(int(rows.size()), int(rows.back().size()));
    for (int i = 0; i < result.rows(); ++i) {
        rows[std::size_t(i)].resize(rows.back().size());
        std::copy(rows[std::size_t(i)].begin(), rows[std::size_t(i)].end(), result[i]);
    }
    return result;
}

/// What R makes of a sample; make_references.R beside the files says how.
inline pelmora::Matrix reference(const QString& name)
{
    return numbersIn(PELMORA_SOURCE_DIR "/tests/data/" + name + ".txt");
}

/// Tells of a column of @p expected that has no column of l within @p limit, reflected or not:
/// neither the order of rotated factors nor the sign of any factor is determined. Empty without
/// any.
inline QString loadingDifference(const pelmora::Matrix& l, const pelmora::Matrix& expected,
                                 double limit)
{
    if (l.rows() != expected.rows())
        return QStringLiteral("%1 and %2 rows").arg(l.rows()).arg(expected.rows());
    for (int k = 0; k < expected.columns(); ++k) {
        double nearest = HUGE_VAL;
        for (int j = 0; j < l.columns(); ++j) {
            double same = 0.0;
            double reflected = 0.0;
            for (int i = 0; i < l.rows(); ++i) {
                same = std::max(same, std::fabs(l[i][j] - expected[i][k]));
                reflected = std::max(reflected, std::fabs(l[i][j] + expected[i][k]));
            }
            nearest = std::min({nearest, same, reflected});
        }
        if (!(nearest < limit))
            return QStringLiteral("column %1 differs by %2, not less than %3")
                .arg(k)
                .arg(nearest)
                .arg(limit);
    }
    return {};
}
