// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/triangle.h"

#include "input/linetext.h"

namespace triangle {

namespace {

const auto unit = QStringLiteral("1.0");
const QChar joiner = u' ';

} // namespace

QStringList withUpperDiagonal(const QStringList& lines)
{
    QStringList completed;
    for (const QString& line : lines)
        completed.append(unit + joiner + line);
    completed.append(unit);
    return completed;
}

QStringList withLowerDiagonal(const QStringList& lines)
{
    QStringList completed(unit);
    for (const QString& line : lines)
        completed.append(line + joiner + unit);
    return completed;
}

QStringList mirroredUpper(const QStringList& lines)
{
    QStringList front(lines.size());
    // The last line has nothing but its diagonal to give; what else it holds has no place.
    for (qsizetype i = 0; i + 1 < lines.size(); ++i) {
        const auto entries = linetext::entries(lines[i]);
        if (i + entries.size() > lines.size())
            return lines;
        for (qsizetype j = 1; j < entries.size(); ++j)
            front[i + j].append(entries[j]).append(joiner);
    }
    for (qsizetype i = 0; i < lines.size(); ++i)
        front[i].append(lines[i]);
    return front;
}

QStringList mirroredLower(const QStringList& lines)
{
    QStringList completed = lines;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const auto entries = linetext::entries(lines[i]);
        if (entries.size() < i)
            return lines;
        for (qsizetype k = 0; k < i; ++k)
            completed[k].append(joiner).append(entries[k]);
    }
    return completed;
}

} // namespace triangle
