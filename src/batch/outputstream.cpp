// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/outputstream.h"

#include "batch/console.h"
#include "output/filewriter.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstring>
#include <iostream>

namespace batch {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Batch", text);
}

int streamToStandardOutput(const std::function<void(std::ostream&)>& write)
{
    try {
        std::cout.exceptions(std::ios_base::failbit | std::ios_base::badbit);
        write(std::cout);
        std::cout.flush();
        return Success;
    } catch (const std::ios_base::failure&) {
        tell(QStringLiteral("-"), tr("Cannot write to standard output: %1")
                                      .arg(QString::fromLocal8Bit(std::strerror(errno))));
        return CannotWrite;
    }
}

} // namespace

int streamOutput(const QString& path, const std::function<void(std::ostream&)>& write)
{
    if (path == u"-")
        return streamToStandardOutput(write);
    const auto failure = writeFile(path, write, LineEnds::AsWritten);
    if (!failure)
        return Success;
    tell(path, tr("Cannot write: %1").arg(failure->reason));
    return CannotWrite;
}

} // namespace batch
