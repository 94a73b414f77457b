// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/namedmatrix.h"
#include "numerics/adequacyresults.h"
#include "output/factorkind.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace batch {

struct AnalyseOptions;
class FileMessages;

/// One page of factors.
struct AnalysedPage
{
    FactorKind kind;
    NamedMatrix loadings; ///< p x m
    pelmora::Matrix coefficients;
    pelmora::Matrix scores; ///< n x m; null where they are not asked for
};

/// All that is computed from one input.
struct Analysis
{
    QString file;
    QByteArray sha256; ///< hexadecimal; empty where the file cannot be read
    bool ofCorrelations = false;
    bool rowWise = false;
    std::int64_t cases = 0; ///< 0: unknown
    VariableNames names;
    std::vector<double> means; ///< empty: unknown
    std::vector<double> standardDeviations;
    pelmora::Matrix correlations;
    pelmora::Decomposition decomposition;
    int factors = 0;
    std::vector<AnalysedPage> pages;
    std::optional<pelmora::AdequacyResults> adequacy; ///< only where it is asked for

    int variables() const { return correlations.rows(); }
    /// Whether every number is one. Coefficients grow beyond all bounds where a matrix is singular
    /// and count only @p withCoefficients.
    bool isFinite(bool withCoefficients) const;
};

/// Reads and analyses @p file. False where it is refused: @p messages then hold why, and of @p
/// analysis only the file and its hash are of use.
bool analyseFile(const QString& file, const AnalyseOptions& options, FileMessages& messages,
                 Analysis& analysis);

} // namespace batch
