// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/commandline.h"

#include <QCoreApplication>
#include <QFile>

#include <csignal>

int main(int argc, char* argv[])
{
    // A closed pipe is a failed write, told like any other.
    std::signal(SIGPIPE, SIG_IGN);
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QFile::decodeName(argv[i]));
    QString error;
    const auto arguments = convert::parseArguments(words, error);
    if (!arguments)
        return convert::refuseUsage(error);
    if (arguments->help)
        return convert::print(convert::helpText());
    if (arguments->version)
        return convert::print(convert::versionText());
    if (arguments->output.isEmpty())
        return convert::refuseUsage(QStringLiteral("-o is missing: the file to write"));
    const QCoreApplication application(argc, argv);
    return convert::run(*arguments);
}
