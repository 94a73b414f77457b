// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/commands.h"

#include <QFile>
#include <QHashSeed>

#include <csignal>
#include <cstdio>

namespace {

/// The toolkit has its say about the machine; standard error is for messages about files.
void keepQuiet(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

} // namespace

int main(int argc, char* argv[])
{
    // A closed pipe is a failed write, told like any other.
    std::signal(SIGPIPE, SIG_IGN);
    // What is written hangs on the order of hashes in places.
    QHashSeed::setDeterministicGlobalSeed();
    qInstallMessageHandler(keepQuiet);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return batch::run(arguments);
}
