// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciicorrreader.h"

#include "input/asciidata.h"
#include "input/linetext.h"
#include "input/numberparser.h"
#include "input/readerreport.h"
#include "input/triangle.h"
#include "numerics/progress.h"

#include <algorithm>
#include <new>
#include <optional>
#include <vector>

namespace {

enum Shape : int {
    FullSquare = 0,
    UpperWithDiagonal = 1,
    UpperWithoutDiagonal = 2,
    LowerWithDiagonal = 3,
    LowerWithoutDiagonal = 4,
    Unidentified = 5
};

/// What tells the shape of a matrix from one of its lines.
struct Outline
{
    qsizetype entries;
    double first;
    double last;
};

/// Nothing for a line without entries or whose first or last entry is no number.
std::optional<Outline> outlineOf(const QString& line)
{
    const auto entries = linetext::entries(line);
    if (entries.isEmpty())
        return std::nullopt;
    const auto first = pelmora::parseNumber(entries.front());
    const auto last = pelmora::parseNumber(entries.back());
    if (!first || !last)
        return std::nullopt;
    return Outline{entries.size(), *first, *last};
}

using Outlines = std::vector<Outline>;

/// The last line's length is not looked at, on purpose; without differences every step fits.
bool lengthsDifferBy(qsizetype step, const Outlines& lines)
{
    for (std::size_t k = 0; k + 2 < lines.size(); ++k)
        if (lines[k + 1].entries - lines[k].entries != step)
            return false;
    return true;
}

bool allBeginWithOne(const Outlines& lines)
{
    return std::all_of(lines.begin(), lines.end(), [](auto& line) { return line.first == 1.0; });
}

bool allEndWithOne(const Outlines& lines)
{
    return std::all_of(lines.begin(), lines.end(), [](auto& line) { return line.last == 1.0; });
}

/// True for an empty file as well, a 0 x 0 matrix, which getData() refuses.
bool isFullSquare(const Outlines& lines)
{
    const auto order = static_cast<qsizetype>(lines.size());
    return std::all_of(lines.begin(), lines.end(),
                       [order](auto& line) { return line.entries == order; });
}

/// Two lines have no differences; these can only be the upper triangle of three variables, unless
/// both begin with what may be its diagonal.
bool isUpperOfThree(const Outlines& lines)
{
    return lines.size() == 2 && lines[0].entries == 2 && lines[1].entries == 1 &&
           !allBeginWithOne(lines);
}

Shape shapeOf(const Outlines& lines)
{
    if (isFullSquare(lines))
        return FullSquare;
    if (isUpperOfThree(lines))
        return UpperWithoutDiagonal;
    if (lengthsDifferBy(+1, lines))
        return allEndWithOne(lines) ? LowerWithDiagonal : LowerWithoutDiagonal;
    if (lengthsDifferBy(-1, lines))
        return allBeginWithOne(lines) ? UpperWithDiagonal : UpperWithoutDiagonal;
    return Unidentified;
}

QStringList completed(const QStringList& lines, int shape)
{
    switch (shape) {
    case UpperWithDiagonal:
        return triangle::mirroredUpper(lines);
    case UpperWithoutDiagonal:
        return triangle::mirroredUpper(triangle::withUpperDiagonal(lines));
    case LowerWithDiagonal:
        return triangle::mirroredLower(lines);
    case LowerWithoutDiagonal:
        return triangle::mirroredLower(triangle::withLowerDiagonal(lines));
    default:
        return lines;
    }
}

constexpr double operationsPerEntry = 100.0;

/// Entries beyond the row's end are passed over. False at the first that is missing or no number.
bool fillRow(double* row, int columns, const QString& line)
{
    const auto entries = linetext::entries(line);
    for (int c = 0; c < columns; ++c) {
        const auto value = c < entries.size() ? pelmora::parseNumber(entries[c]) : std::nullopt;
        if (!value)
            return false;
        row[c] = *value;
    }
    return true;
}

} // namespace

AsciiCorrReader::AsciiCorrReader(const QString& fileName, QObject* parent)
    : AsciiReader(fileName, parent)
{
}

bool AsciiCorrReader::read()
{
    if (!readFile())
        return false;
    try {
        return complete();
    } catch (const std::bad_alloc&) {
        // A square takes more than twice the memory of the triangle that was read.
        showReadError();
        return false;
    }
}

bool AsciiCorrReader::complete()
{
    const int shape = identifyType();
    if (shape == Unidentified) {
        reportReaderMessage({ReaderMessage::Severity::Warning, tr("Error"),
                             tr("Unable to identify type of correlation matrix")});
        return false;
    }
    setDataLines(completed(dataLines(), shape));
    return true;
}

int AsciiCorrReader::identifyType()
{
    Outlines outlines;
    for (const QString& line : dataLines()) {
        const auto outline = outlineOf(line);
        if (!outline) {
            reportReaderMessage({ReaderMessage::Severity::Warning,
                                 tr("Error while reading correlation matrix"),
                                 tr("Some entries seems to be not a number.")});
            return Unidentified;
        }
        outlines.push_back(*outline);
    }
    return shapeOf(outlines);
}

bool AsciiCorrReader::checkConsistency()
{
    return true;
}

bool AsciiCorrReader::getData(AsciiData& data)
try {
    data.setNames(variableNames());
    // A misread triangle may have longer lines than the square has columns.
    bool filled = lineCount() > 0 && lineCount() == data.rows() && columnCount() == data.cols();
    const QStringList lines = dataLines();
    const int order = static_cast<int>(data.rows());
    pelmora::ProgressMeter meter({.work = pelmora::Progress::Work::Reading});
    for (int r = 0; filled && r < order; ++r) {
        filled = fillRow(data.matrix()[r], static_cast<int>(data.cols()), lines[r]);
        meter.progress().done = double(r) / order;
        filled = filled && meter.goOnAfter(operationsPerEntry * order);
    }
    return filled;
} catch (const std::bad_alloc&) {
    return false;
}
