// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "output/filewriter.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <iosfwd>
#include <string_view>

/// What all commands share: exit codes, messages and output.
namespace batch {

/// Translates a text of any command.
QString tr(const char* text);

/// A command that meets several faults ends with the largest.
enum ExitCode : int {
    Success = 0,
    InputRefused = 1,
    WrongUsage = 2,
    CannotWrite = 3,
    NotFinite = 4 ///< a number asked for is not finite, or the eigenvalues did not converge
};

QString version();
/// "pelmora-batch 1.0" and a line end.
QString versionLine();

/// Tells one line "FILE: TEXT" on standard error.
void tell(const QString& file, const QString& text);

/// Tells what is wrong with the arguments of @p command (empty: of the program) and where help is.
/// @returns WrongUsage
int refuseUsage(const QString& command, const QString& text);

/// Writes a file whole or not at all; a failure is reported, and false returned.
bool writeOutput(const QString& path, const std::function<void(std::ostream&)>& write,
                 LineEnds lineEnds = LineEnds::OfThePlatform);
/// The same for bytes that stay as they are.
bool writeOutput(const QString& path, const QByteArray& bytes);

/// Writes a file whole or not at all, its bytes as they are; where @p path is "-", to standard
/// output as they come. What @p write throws besides the stream's own failures is passed on. A
/// failure is reported.
/// @returns an ExitCode
int streamOutput(const QString& path, const std::function<void(std::ostream&)>& write);

/// Writes @p bytes to standard output, to the last one; a failure is reported. An ExitCode.
int writeToStandardOutput(std::string_view bytes);

/// The same for text, as UTF-8.
int print(const QString& text);

} // namespace batch
