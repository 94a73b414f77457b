// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

inline QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// A file with given bytes in a folder of its own, both gone at the end.
class SampleFile
{
public:
    SampleFile(const QString& name, const QByteArray& bytes) : m_path(m_folder.filePath(name))
    {
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Cannot write a test's sample file");
    }

    QString path() const { return m_path; }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QString m_path;
};
