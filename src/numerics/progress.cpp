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
bool cancelled = false;

} // namespace

ProgressReport setProgressReport(ProgressReport report)
{
    const ProgressReport previous = reportInForce;
    reportInForce = report ? report : alwaysGoOn;
    cancelled = false;
    return previous;
}

bool goOn(const Progress& progress)
{
    if (!cancelled)
        cancelled = !reportInForce(progress);
    return !cancelled;
}

bool isCancelled()
{
    return cancelled;
}

bool ProgressMeter::ask()
{
    m_pending = 0.0;
    return goOn(m_progress);
}

} // namespace pelmora
