// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QStringView>

/// Lines of a text file as text: what they are and what they hold.
namespace linetext {

enum Kind : int { Data = 0, Name = 1, Other = 2 };

/// White space of every file and name, whatever a toolkit or locale thinks.
bool isBlank(char16_t code);

QStringView trimmed(QStringView line);

Kind kindOf(QStringView line);

/// What stands between blanks (or commas, though no data line holds one).
QList<QStringView> entries(QStringView line);

/// Zero-based variable index and name of a name line; -1 and an empty name without a readable
/// number. The name is what stands outside of every "vname" with its number, as far as the first
/// such place goes; a line without "vname" right before its number is its own name.
int parseName(const QString& line, QString& name);

} // namespace linetext
