// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <iosfwd>

namespace batch {

/// Writes a file whole or not at all; "-" is standard output, which takes what there is when there
/// is something. Bytes go out as they are. What @p write throws besides the stream's own failures
/// is thrown on. A failure is told.
/// @returns an ExitCode
int streamOutput(const QString& path, const std::function<void(std::ostream&)>& write);

} // namespace batch
