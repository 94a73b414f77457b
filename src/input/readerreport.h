// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What a reader has to tell the user about a file.
struct ReaderMessage
{
    enum class Severity { Information, Warning };

    Severity severity;
    QString title;
    QString text; ///< may hold text of the file; never rich text
};

using ReaderReport = void (*)(const ReaderMessage& message);

/// Replaces the report that the readers' messages go through and returns the one before it. The
/// first report, which null brings back, writes to standard error; the program sets one that opens
/// a box.
ReaderReport setReaderReport(ReaderReport report);

/// Reports @p message through the report in force.
void reportReaderMessage(const ReaderMessage& message);
