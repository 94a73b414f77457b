// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>
#include <QTemporaryDir>

/// A file with given bytes, as long as the object lives.
class InputFile
{
public:
    explicit InputFile(const QByteArray& bytes)
    {
        QFile file(path());
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }

    QString path() const { return m_folder.filePath(QStringLiteral("input.txt")); }

private:
    QTemporaryDir m_folder;
};
