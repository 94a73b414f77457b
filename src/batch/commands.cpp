// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/commands.h"

#include "batch/console.h"

#include <QCoreApplication>

namespace batch {

namespace {

struct Command
{
    const char* name;
    const char* summary;
    int (*run)(const QStringList& arguments);
};

constexpr Command commands[] = {
    {"analyse", QT_TRANSLATE_NOOP("Batch", "analyse files of raw data or correlations"), analyse},
    {"correlate", QT_TRANSLATE_NOOP("Batch", "correlate data of any size in one pass"), correlate},
    {"sums", QT_TRANSLATE_NOOP("Batch", "gather what a part of such data brings"), sums},
    {"merge", QT_TRANSLATE_NOOP("Batch", "correlate from what the parts bring"), merge},
    {"score", QT_TRANSLATE_NOOP("Batch", "compute the factor scores of any cases"), score},
};

QString help()
{
    QString text = tr("Usage: pelmora-batch COMMAND [ARGUMENTS]\n\n"
                      "Exploratory factor analysis for scripts. Commands:\n\n");
    for (const Command& command : commands)
        text += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -10)
                    .arg(tr(command.summary));
    return text + tr("\n\"pelmora-batch COMMAND --help\" tells more; so does the manual page "
                     "pelmora-batch(1).\n");
}

} // namespace

int run(const QStringList& arguments)
{
    const QString name = arguments.value(0);
    if (name == u"--help" || name == u"-h")
        return print(help());
    if (name == u"--version")
        return print(versionLine());
    for (const Command& command : commands)
        if (name == QLatin1String(command.name))
            return command.run(arguments.sliced(1));
    return refuseUsage(QString(), name.isEmpty() ? tr("a command is missing")
                                                 : tr("there is no command \"%1\"").arg(name));
}

} // namespace batch
