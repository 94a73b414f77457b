// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/readerreport.h"

#include <cstdio>

namespace {

void writeToStandardError(const ReaderMessage& message)
{
    std::fprintf(stderr, "%s\n", message.text.toLocal8Bit().constData());
}

ReaderReport reportInForce = writeToStandardError;

} // namespace

ReaderReport setReaderReport(ReaderReport report)
{
    const ReaderReport previous = reportInForce;
    reportInForce = report ? report : writeToStandardError;
    return previous;
}

void reportReaderMessage(const ReaderMessage& message)
{
    reportInForce(message);
}
