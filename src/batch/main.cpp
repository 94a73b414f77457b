// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/commands.h"

#include <QFile>
#include <QHashSeed>

#include <csignal>
#include <cstdio>

namespace {

/// Drops the toolkit's remarks on the machine: standard error is for messages about files.
void keepQuiet(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

} // namespace

int main(int argc, char* argv[])
{
    // Writing to a closed pipe is to fail like any other write.
    std::signal(SIGPIPE, SIG_IGN);
    // Some of the output is written in the order of a hash.
    QHashSeed::setDeterministicGlobalSeed();
    qInstallMessageHandler(keepQuiet);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return batch::run(arguments);
}
