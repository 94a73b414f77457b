// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/scan/faultreport.h"

#include "input/asciidatareader.h"
#include "input/readerreport.h"
#include "input/scan/numberlines.h"

namespace pelmora {

namespace {

/// An entry of a damaged file may be megabytes long, more than a box can show.
QString shownEntry(const QString& entry)
{
    constexpr qsizetype longest = 1000;
    return entry.size() <= longest ? entry : entry.first(longest) + QStringLiteral("...");
}

} // namespace

void reportReadError(const QString& fileName)
{
    reportReaderMessage({ReaderMessage::Severity::Warning, QStringLiteral("Error"),
                         QStringLiteral("Error while reading file %1").arg(fileName)});
}

void reportLineFault(const LineFault& fault)
{
    const QString text =
        fault.kind == LineFault::EntryCount
            ? AsciiDataReader::tr("Line %1 has different number of entries compared to line no.1.")
                  .arg(fault.line)
            : AsciiDataReader::tr("Entry in line %1 and column %2 is not a number: %3")
                  .arg(fault.line)
                  .arg(fault.entry)
                  .arg(shownEntry(fault.text));
    reportReaderMessage({ReaderMessage::Severity::Information,
                         AsciiDataReader::tr("Error while reading data"), text});
}

} // namespace pelmora
