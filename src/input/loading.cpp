// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/loading.h"

#include "input/asciicorrreader.h"
#include "input/asciidatareader.h"
#include "input/correlationdata.h"
#include "input/readerreport.h"
#include "numerics/progress.h"

#include <QCoreApplication>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Loading", text);
}

/// A user who has cancelled needs no message.
bool refuse(const QString& text)
{
    if (pelmora::isCancelled())
        return false;
    reportReaderMessage({ReaderMessage::Severity::Information, tr("Error"), text});
    return false;
}

QString tooLarge()
{
    return tr("Not enough memory for loading matrix.");
}

} // namespace

bool loadDataMatrix(const QString& path, AsciiData& data)
{
    AsciiDataReader reader(path, nullptr);
    if (!reader.readFile() || !reader.checkConsistency())
        return false;
    if (!data.allocate(reader.lineCount(), reader.columnCount()))
        return refuse(tooLarge());
    return reader.getData(data) || refuse(tr("Error in data matrix."));
}

bool loadCorrelationMatrix(const QString& path, CorrelationData& correlations,
                           QStringList* otherLines)
{
    AsciiCorrReader reader(path, nullptr);
    if (!reader.read() || !reader.checkConsistency())
        return false;
    if (otherLines)
        *otherLines = reader.otherLines();
    if (!correlations.allocate(reader.lineCount(), reader.lineCount()))
        return refuse(tooLarge());
    if (!reader.getData(correlations))
        return refuse(tr("Error in correlation matrix."));
    return correlations.testSymmetry() ||
           refuse(tr("Correlation matrix is not symmetric! %1").arg(correlations.asymmetry()));
}
