// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "support/samplefile.h"

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

    QByteArray content(const QString& name) const { return contentsOf(path(name)); }

    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files); }

    /// Without a display, which must not be asked for.
    Outcome run(const QStringList& arguments, const QString& input = {},
                const QString& output = {}) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        environment.remove(QStringLiteral("DISPLAY"));
        process.setProcessEnvironment(environment);
        if (!input.isEmpty())
            process.setStandardInputFile(path(input));
        if (!output.isEmpty())
            process.setStandardOutputFile(output);
        process.start(QStringLiteral(PELMORA_BATCH), arguments);
        const bool finished = process.waitForFinished();
        return {finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput(), process.readAllStandardError()};
    }

private:
    QTemporaryDir m_folder;
};
