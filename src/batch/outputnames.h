// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "batch/analyseoptions.h"

#include <QString>
#include <QStringList>

namespace batch {

/// Where the results of one input go.
class OutputNames
{
public:
    OutputNames(const AnalyseOptions& options, const QString& input);

    /// "stem.ENDING".
    QString file(const char* ending) const;
    /// "stem_M.ENDING" of a page with so many factors.
    QString pageFile(const QString& factors, const QString& ending) const;
    /// "stem_M_KIND.ENDING".
    QString pageFile(const QString& factors, FactorKind kind, const QString& ending) const;

    /// Every file that will be written, @p factors standing for the number of factors.
    QStringList all(const AnalyseOptions& options, const QString& factors) const;

private:
    QString m_stem; ///< folder and name of the input without its last ending
};

QString drawingEnding(DrawingKind kind);

/// The picture beside a report in Markdown; @p input counts from 0.
QString reportPicture(const QString& report, qsizetype input, FactorKind kind);

/// What is wrong with the outputs of @p options, before anything has been read: an output that is
/// an input, or two outputs of one name. Empty: nothing. Numbers of factors that are still unknown
/// may be any.
QString outputConflict(const AnalyseOptions& options);

} // namespace batch
