// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <iosfwd>

class QWidget;

/// An export that asks for a file name, writes, and shows every failure in a box.
struct FileExport
{
    QString caption;      ///< title of the save dialog
    QString proposedFile; ///< path that the dialog starts with
    QString filter;
    QString failureTitle; ///< title of the box that shows an exception raised while writing
    /// Text of that box for a stream that went bad; empty: the exception's own message.
    QString badStreamText;
    bool isBinary = false; ///< otherwise line ends become the platform's
};

/// Runs @p fileExport with @p parent under its dialogs. A cancelled dialog ends it silently. What
/// was written before a failure stays in the file.
/// @param write  writes bytes, text as Latin-1; the stream throws std::ios_base::failure
void runExport(QWidget* parent, const FileExport& fileExport,
               const std::function<void(std::ostream&)>& write);
