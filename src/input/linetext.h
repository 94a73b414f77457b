// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QStringView>

/// Classifies lines of a text file and takes them apart.
namespace linetext {

enum Kind : int { Data = 0, Name = 1, Other = 2 };

/// White space in every file and name, independent of toolkit and locale.
bool isBlank(char16_t code);

QStringView trimmed(QStringView line);

Kind kindOf(QStringView line);

/// The texts between blanks (or commas, though no data line holds one).
QList<QStringView> entries(QStringView line);

/// Zero-based variable index and name of a name line; -1 and an empty name without a readable
/// number. The name is the first text outside of "vname", its number and the blanks around them; a
/// line without "vname" right before a number is its own name.
int parseName(const QString& line, QString& name);

} // namespace linetext
