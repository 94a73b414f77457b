// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

/// What a run of pelmora-batch ended with.
struct Outcome
{
    int code; ///< -1 when it did not end by itself
    QByteArray out;
    QByteArray err;
};

/// A folder in which pelmora-batch runs; gone at the end.
class BatchFolder
{
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    void put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Cannot write a test's file");
    }

    QByteArray content(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    bool has(const QString& name) const { return QFile::exists(path(name)); }

    Outcome run(const QStringList& arguments, const QString& input = QString()) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        if (!input.isEmpty())
            process.setStandardInputFile(path(input));
        process.start(QStringLiteral(PELMORA_BATCH), arguments);
        const bool finished = process.waitForFinished();
        return {finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput(), process.readAllStandardError()};
    }

private:
    QTemporaryDir m_folder;
};
