// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <string>
#include <vector>

/// The raw data reader as a textbook writes it: lists of strings, patterns, and one conversion per
/// look at a number. Files, faults and names are those of src/input.
namespace pelmora::plain {

/// The trimmed lines of a file by kind, each in file order.
struct TextFile
{
    QStringList data;
    QStringList names;
    QStringList other;
};

/// False when the file cannot be opened or read.
bool readFile(const QString& fileName, TextFile& file);

int columnCount(const TextFile& file);

/// Text of the message about the first fault among the data lines; empty without one.
QString firstFault(const TextFile& file);

/// Fills @p matrix (data lines x columnCount()) up to the first entry that is missing or no number;
/// false then, and when there is no entry at all.
bool fillMatrix(const TextFile& file, double** matrix);

int parseNameLine(const QString& line, QString& name);
std::vector<std::string> variableNames(const TextFile& file);

} // namespace pelmora::plain
