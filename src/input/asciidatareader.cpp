// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidatareader.h"

#include "input/asciidata.h"
#include "input/readerreport.h"
#include "input/scan/numberlines.h"
#include "input/variablenames.h"

#include <new>
#include <utility>

namespace {

/// An entry of a damaged file may be megabytes long, more than a box can show.
QString shownEntry(const QString& entry)
{
    constexpr qsizetype longest = 1000;
    return entry.size() <= longest ? entry : entry.first(longest) + QStringLiteral("...");
}

} // namespace

AsciiDataReader::AsciiDataReader(const QString& fileName, QObject* parent)
    : AsciiReader(fileName, DataLines::Convert, parent)
{
}

bool AsciiDataReader::checkConsistency()
{
    using pelmora::LineFault;
    const LineFault& fault = numbers()->fault();
    if (fault.kind == LineFault::None)
        return true;
    const QString text =
        fault.kind == LineFault::EntryCount
            ? tr("Line %1 has different number of entries compared to line no.1.").arg(fault.line)
            : tr("Entry in line %1 and column %2 is not a number: %3")
                  .arg(fault.line)
                  .arg(fault.entry)
                  .arg(shownEntry(fault.text));
    reportReaderMessage(
        {ReaderMessage::Severity::Information, tr("Error while reading data"), text});
    return false;
}

bool AsciiDataReader::getData(AsciiData& data)
try {
    pelmora::NumberLines& lines = *numbers();
    const bool sameSize = lineCount() == data.rows() && columnCount() == data.cols();
    const bool complete = sameSize && lines.isComplete();
    data.setNames(variableNames());
    pelmora::Matrix matrix = complete ? lines.takeMatrix() : pelmora::Matrix();
    if (matrix.isNull())
        lines.copyTo(data.matrix());
    else
        data.setMatrix(std::move(matrix));
    return complete;
} catch (const std::bad_alloc&) {
    return false;
}
