// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/console.h"

#include "output/tabletext.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace batch {

namespace {

int tellStandardOutputFailure()
{
    tell(QStringLiteral("-"), tr("Cannot write to standard output: %1")
                                  .arg(QString::fromLocal8Bit(std::strerror(errno))));
    return CannotWrite;
}

} // namespace

QString tr(const char* text)
{
    return QCoreApplication::translate("Batch", text);
}

QString version()
{
    return QStringLiteral(PELMORA_VERSION);
}

QString versionLine()
{
    return QStringLiteral("pelmora-batch %1\n").arg(version());
}

void tell(const QString& file, const QString& text)
{
    // Names of files and texts of damaged ones may hold line ends.
    const QString line = onOneLine(file + QStringLiteral(": ") + text);
    std::fputs((line + u'\n').toLocal8Bit().constData(), stderr);
}

int refuseUsage(const QString& command, const QString& text)
{
    const QString program = QStringLiteral("pelmora-batch");
    const QString named = command.isEmpty() ? program : program + u' ' + command;
    tell(named, text);
    std::fputs(tr("Try \"%1 --help\".\n").arg(named).toLocal8Bit().constData(), stderr);
    return WrongUsage;
}

bool writeOutput(const QString& path, const std::function<void(std::ostream&)>& write,
                 LineEnds lineEnds)
{
    const auto failure = writeFile(path, write, lineEnds);
    if (failure)
        tell(path, tr("Cannot write: %1").arg(failure->reason));
    return !failure;
}

bool writeOutput(const QString& path, const QByteArray& bytes)
{
    return writeOutput(
        path, [&](std::ostream& out) { out.write(bytes.constData(), bytes.size()); },
        LineEnds::AsWritten);
}

int writeToStandardOutput(std::string_view bytes)
{
    // A full disk or a closed pipe is often met by the flush only.
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() &&
        std::fflush(stdout) == 0)
        return Success;
    return tellStandardOutputFailure();
}

int streamOutput(const QString& path, const std::function<void(std::ostream&)>& write)
{
    if (path != u"-")
        return writeOutput(path, write, LineEnds::AsWritten) ? Success : CannotWrite;
    try {
        std::cout.exceptions(std::ios_base::failbit | std::ios_base::badbit);
        write(std::cout);
        std::cout.flush();
        return Success;
    } catch (const std::ios_base::failure&) {
        return tellStandardOutputFailure();
    }
}

int print(const QString& text)
{
    return writeToStandardOutput(text.toUtf8().toStdString());
}

} // namespace batch
