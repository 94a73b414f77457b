// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/errorreport.h"

#include <cstdio>

namespace pelmora {

namespace {

void writeToStandardError(const char* text)
{
    std::fputs(text, stderr);
    std::fputc('\n', stderr);
}

ErrorReport reportInForce = writeToStandardError;

} // namespace

ErrorReport setErrorReport(ErrorReport report)
{
    const ErrorReport previous = reportInForce;
    reportInForce = report ? report : writeToStandardError;
    return previous;
}

void reportError(const char* text)
{
    reportInForce(text);
}

} // namespace pelmora
