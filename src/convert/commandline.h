// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/arguments.h"

namespace convert {

enum ExitCode : int { Written = 0, Refused = 1, WrongUsage = 2, CannotReadOrWrite = 3 };

/// Converts one file as the arguments say; the report goes to standard output, reasons to standard
/// error.
int run(const Arguments& arguments);

/// Tells what is wrong with the arguments.
int refuseUsage(const QString& error);

/// Prints to standard output, as UTF-8.
int print(const QString& text);

/// Whether both paths name one file, links resolved, also where it does not exist yet.
bool isSameFile(const QString& a, const QString& b);

} // namespace convert
