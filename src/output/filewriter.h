// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <iosfwd>
#include <optional>

/// Why a file could not be written.
struct WriteFailure
{
    enum class Step {
        Opening, ///< there is no such folder, or writing is not allowed
        Writing, ///< the file refused bytes, as on a full disk
        Content  ///< the writer itself gave up by an exception
    };

    Step step;
    QString path;
    QString reason; ///< the system's words, or those of the writer's exception

    /// Path and reason, for a message.
    QString text() const;
};

enum class LineEnds { AsWritten, OfThePlatform };

/// Writes a file whole or not at all: what @p path held stays until everything new has been written
/// and flushed. A symbolic link stays and its target is written. Where the file cannot be replaced
/// the bytes go straight into it: whatever is no regular file (a device, a pipe, the standard
/// output), and a file in a folder where no other can be created. What cannot be opened is told
/// before anything is written.
/// @param write  writes bytes, text as Latin-1. The stream throws std::ios_base::failure; any other
///               std::exception gives the file up with its message as the reason
/// @return nothing when all is written
std::optional<WriteFailure> writeFile(const QString& path,
                                      const std::function<void(std::ostream&)>& write,
                                      LineEnds lineEnds = LineEnds::OfThePlatform);
