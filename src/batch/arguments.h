// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace batch {

/// The arguments of a command, taken apart: options with one value each, of which the last counts,
/// and files.
struct Arguments
{
    QStringList files; ///< "-" is one of them
    QMap<QString, QString> options;
    bool help = false;
    QString fault; ///< what is wrong with them; empty: nothing

    QString option(const char* name) const { return options.value(QLatin1String(name)); }
};

/// @param names  options that take a value: "-o", "--from"
Arguments takeApart(QStringList arguments, const QStringList& names);

/// Whether two names are those of one existing file.
bool isSameFile(const QString& one, const QString& other);

/// A number of digits only, from @p least to @p most.
std::optional<std::uint64_t> wholeNumber(const QString& text, std::uint64_t least,
                                         std::uint64_t most);

/// Takes the value of an option, where it is given, as a number; otherwise @p number stays.
void takeNumber(Arguments& arguments, const char* option, std::uint64_t& number);

} // namespace batch
