// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/firststeps.h"

#include "app/userguide.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>

namespace {

struct FirstSteps
{
    Q_DECLARE_TR_FUNCTIONS(FirstSteps)
};

QString keysOf(const QAction& action)
{
    return action.shortcut().toString(QKeySequence::NativeText);
}

QString whereSamplesAre()
{
    const QUrl guide = userGuideUrl();
    const QFileInfo samples(QFileInfo(guide.toLocalFile()).dir().filePath("samples"));
    return !guide.isEmpty() && samples.isDir()
               ? FirstSteps::tr("Two samples are in the folder %1.")
                     .arg(QDir::toNativeSeparators(samples.absoluteFilePath()))
               : FirstSteps::tr("Two samples come with the program.");
}

} // namespace

QLabel* makeFirstSteps(QWidget* parent, const QAction& readData, const QAction& readCorrelations)
{
    const QString text =
        FirstSteps::tr("To begin, choose\n\n"
                       "File, Read raw data, ASCII (%1): one line per case\n"
                       "File, Read correlations, ASCII (%2): a matrix or one triangle of it\n\n"
                       "A line of data holds plain decimal numbers between blanks or tabs, for "
                       "instance\n\n62.5   171   34\n\n"
                       "A line such as \"vname 1 Weight\" names the first variable; any other line "
                       "is set aside. Pelmora Convert makes such files from tables of "
                       "spreadsheets, R and SPSS.\n\n%3\n"
                       "The guide (Help, Online help) begins with them.")
            .arg(keysOf(readData), keysOf(readCorrelations), whereSamplesAre());
    auto* label = new QLabel(text, parent);
    label->setObjectName(QStringLiteral("labelFirstSteps"));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}
