// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/readerreport.h"

#include <QList>
#include <QString>

namespace batch {

/// While it lives, what readers and numerics report is about one file: each message is written to
/// standard error and kept. Only one lives at a time.
class FileMessages
{
public:
    explicit FileMessages(const QString& file);
    ~FileMessages();
    FileMessages(const FileMessages&) = delete;
    FileMessages& operator=(const FileMessages&) = delete;

    void add(const ReaderMessage& message);
    void warn(const QString& title, const QString& text);

    const QList<ReaderMessage>& all() const { return m_messages; }
    /// Whether the numerics reported: the eigenvalues did not converge, or memory did not suffice.
    bool hasNumericalFault() const { return m_numericalFault; }

private:
    void addNumericalFault(const char* text);

    QString m_file;
    QList<ReaderMessage> m_messages;
    bool m_numericalFault = false;
};

} // namespace batch
