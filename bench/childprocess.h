// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <vector>

namespace samples {

/// What a process has written and used.
struct Ended
{
    QByteArray output;
    double processorSeconds = 0.0;
    double peakMegabytes = 0.0;
};

/// Runs a program, the first of @p command, with its arguments.
Ended runToTheEnd(std::vector<QByteArray> command);

} // namespace samples
