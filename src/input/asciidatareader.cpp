// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidatareader.h"

#include "input/asciidata.h"
#include "input/scan/faultreport.h"
#include "input/scan/numberlines.h"

#include <new>
#include <utility>

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
    pelmora::reportLineFault(fault);
    return false;
}

bool AsciiDataReader::getData(AsciiData& data)
try {
    if (numbers()->areTaken() && !convertAgain())
        return false;
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
