// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/progress.h"

namespace pelmora {

namespace {

bool alwaysGoOn(const Progress&)
{
    return true;
}

ProgressReport reportInForce = alwaysGoOn;

} // namespace

ProgressReport setProgressReport(ProgressReport report)
{
    const ProgressReport previous = reportInForce;
    reportInForce = report ? report : alwaysGoOn;
    return previous;
}

bool goOn(const Progress& progress)
{
    return reportInForce(progress);
}

} // namespace pelmora
