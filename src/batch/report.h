// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "batch/analyseoptions.h"

#include <memory>

namespace batch {

struct AnalysedPage;
struct Analysis;
class FileMessages;
class ReportDocument;

/// A report of the results for reading, one section per input. Needs a DrawingRoom.
class Report
{
public:
    explicit Report(const AnalyseOptions& options);
    ~Report();

    /// With @p refused only the messages.
    void add(const Analysis& analysis, const FileMessages& messages, bool refused);

    /// Writes the document and its pictures; false after a failure has been reported.
    bool write();

private:
    void addNumberOfFactors(const Analysis& analysis);
    void addEigenvalues(const Analysis& analysis);
    void addPage(const AnalysedPage& page);
    void addLoadings(const AnalysedPage& page);
    void addPairs(const AnalysedPage& page);
    QString method() const;

    const AnalyseOptions& m_options;
    const unsigned m_decimals;
    const QString m_title;
    qsizetype m_inputs = 0;
    std::unique_ptr<ReportDocument> m_document;
};

} // namespace batch
