// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/commands.h"

#include <QFile>

#include <csignal>

int main(int argc, char* argv[])
{
    // A closed pipe is a failed write, told like any other.
    std::signal(SIGPIPE, SIG_IGN);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return batch::run(arguments);
}
