// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "output/factorkind.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace batch {

/// How many factors are taken.
enum class FactorRule {
    Given,
    Eigenvalues, ///< as the "PCA" page presets
    Parallel     ///< as parallel analysis tells by its 95 % quantile
};

enum class DrawingKind { Png, Pdf, Svg };

/// What can be written beside the input, one bit each.
enum Output : unsigned {
    CorrelationFile = 1,
    EigenvalueFile = 2,
    EigenvectorFile = 4,
    InitialLoadingFile = 8,
    LoadingFiles = 16,
    ScoreFiles = 32,
    PairFiles = 64,
    AdequacyFile = 128,
    DiagramFiles = 256
};

/// What the arguments of "analyse" ask for.
struct AnalyseOptions
{
    QStringList files;
    bool correlations = false;
    bool rowWise = false;
    FactorRule rule = FactorRule::Eigenvalues;
    int factors = 0; ///< where they are given
    std::vector<FactorKind> rotations = {FactorKind::Pelmora, FactorKind::Varimax,
                                         FactorKind::Initial}; ///< in this order
    std::optional<unsigned> precision;
    int cases = 0;  ///< of correlations; 0: unknown
    QString folder; ///< empty: beside the input
    unsigned outputs = 0;
    DrawingKind drawing = DrawingKind::Png;
    QString json; ///< "-": standard output
    QString report;
    bool quiet = false;
    bool help = false;
    bool version = false;

    bool writes(Output output) const { return (outputs & output) != 0; }
    bool wantsAdequacy() const { return writes(AdequacyFile) || !report.isEmpty(); }
    bool wantsDiagrams() const { return writes(DiagramFiles) || !report.isEmpty(); }
    unsigned filePrecision() const { return precision.value_or(9); }
    /// Of diagrams and reports, where nine decimals would be hard to read.
    unsigned shownPrecision() const { return precision.value_or(2); }
};

/// Takes the arguments apart. @p fault tells what is wrong with them; empty: nothing. An option
/// that is repeated replaces its earlier value.
AnalyseOptions parseAnalyseOptions(const QStringList& arguments, QString& fault);

/// What a rotation is called in arguments and in JSON.
QString rotationWord(FactorKind kind);

} // namespace batch
