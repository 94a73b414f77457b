// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Triangles of correlations: right ones are completed so that each cell holds its own text, and the
// lines of wrong ones are at least not lost.

#include "fuzz/fuzzsupport.h"
#include "input/linetext.h"
#include "input/triangle.h"

#include <algorithm>

namespace {

QStringList linesOf(const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split(u'\n'))
        lines << linetext::trimmed(line).toString();
    return lines;
}

void requireLinesKept(const QStringList& lines)
{
    for (const auto complete : {triangle::mirroredUpper, triangle::mirroredLower}) {
        const QStringList completed = complete(lines);
        require(completed.size() == lines.size(), "as many lines");
        for (qsizetype i = 0; i < lines.size(); ++i)
            require(completed[i].contains(lines[i]), "each with what it held");
    }
}

QString cellText(qsizetype row, qsizetype column)
{
    return QStringLiteral("%1.%2").arg(std::min(row, column)).arg(std::max(row, column));
}

/// One line per row of the chosen triangle, blanks taken from @p blanks.
QStringList triangleOf(qsizetype order, bool upper, bool diagonal, const QString& blanks)
{
    QStringList lines;
    for (qsizetype r = 0; r < order; ++r) {
        QString line;
        for (qsizetype c = upper ? r : 0; c < (upper ? order : r + 1); ++c)
            if (diagonal || c != r)
                line += (line.isEmpty() ? QString() : blanks) + cellText(r, c);
        if (!line.isEmpty())
            lines << line;
    }
    return lines;
}

void requireSquare(const QStringList& lines, qsizetype order, bool diagonal)
{
    require(lines.size() == order, "one line per variable");
    for (qsizetype r = 0; r < order; ++r) {
        const auto entries = linetext::entries(lines[r]);
        require(entries.size() == order, "one entry per variable");
        for (qsizetype c = 0; c < order; ++c)
            require(entries[c] == (r == c && !diagonal ? QStringLiteral("1.0") : cellText(r, c)),
                    "each cell its own");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromLatin1(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    requireLinesKept(linesOf(text));
    if (size < 2)
        return 0;

    const qsizetype order = 2 + data[0] % 12;
    const bool upper = data[1] & 1;
    const bool diagonal = data[1] & 2;
    const QString blanks = data[1] & 4 ? QStringLiteral("\t") : QStringLiteral("  ");
    QStringList lines = triangleOf(order, upper, diagonal, blanks);
    if (!diagonal)
        lines = upper ? triangle::withUpperDiagonal(lines) : triangle::withLowerDiagonal(lines);
    requireSquare(upper ? triangle::mirroredUpper(lines) : triangle::mirroredLower(lines), order,
                  diagonal);
    return 0;
}
