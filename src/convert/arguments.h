// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/options.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace convert {

/// The parsed command line.
struct Arguments
{
    Options options;
    QString input;
    QString output; ///< empty: a window is asked for
    QString report; ///< empty: standard output
    bool force = false;
    bool help = false;
    bool version = false;
};

/// @param words  without the program's name
/// @param error  what is wrong, where nothing is returned
std::optional<Arguments> parseArguments(const QStringList& words, QString& error);

/// "2-10,12"; nothing where the text is no such list.
std::optional<Ranges> parseRanges(const QString& text);

/// Takes "NA,-99" or "none" as codes of missing values; false for an empty list.
bool parseMissing(const QString& text, Options& options);

QString helpText();
QString versionText();

} // namespace convert
