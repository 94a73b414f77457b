// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/console.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace batch {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Batch", text);
}

} // namespace

QString versionLine()
{
    return QStringLiteral("pelmora-batch " PELMORA_VERSION "\n");
}

void tell(const QString& file, const QString& text)
{
    QString line = file + QStringLiteral(": ") + text;
    // Names of files and texts of damaged ones may hold line ends.
    for (QChar& character : line)
        if (character.category() == QChar::Other_Control)
            character = u' ';
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

int writeToStandardOutput(const QByteArray& bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    // A full disk or a closed pipe is often met by the flush only.
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return Success;
    tell(QStringLiteral("-"), tr("Cannot write to standard output: %1")
                                  .arg(QString::fromLocal8Bit(std::strerror(errno))));
    return CannotWrite;
}

int print(const QString& text)
{
    return writeToStandardOutput(text.toUtf8());
}

} // namespace batch
