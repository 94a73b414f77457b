// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Shows one message of the numerical core to the user and returns.
using ErrorReport = void (*)(const char* text);

/// Replaces the report that numerical faults go through and returns the one before it.
/// The first report, which null brings back, writes to standard error; the program sets one that
/// opens a box.
ErrorReport setErrorReport(ErrorReport report);

/// Reports @p text through the report in force; the caller then carries on.
void reportError(const char* text);

} // namespace pelmora
