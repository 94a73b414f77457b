// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QTemporaryDir>

namespace samples {

/// A raw data file with names: cases of variables that depend on one factor per ten of them, and on
/// chance. Four decimals per number, 7.8 bytes with the separator. From ten thousand cases on they
/// come again.
class File
{
public:
    File(int cases, int variables);

    QString path() const { return m_folder.filePath(QStringLiteral("sample.txt")); }

private:
    QTemporaryDir m_folder;
};

} // namespace samples
