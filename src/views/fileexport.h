// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <iosfwd>

class QWidget;
class SessionFace;

/// An export that asks for a file name, writes, and shows every failure in a box.
struct FileExport
{
    QString caption;      ///< title of the save dialog
    QString proposedFile; ///< path that the dialog starts with
    QString filter;
    QString openingTitle = {}; ///< of the box for a file that cannot be opened; empty: the usual
    QString openingText = {};  ///< and its text
    QString failureTitle;      ///< title of the box that shows a failure while writing
    /// Text of that box for a file that refuses bytes; empty: path and reason.
    QString badStreamText = {};
    /// What is lost when this replaces the session's input file, as a sentence.
    QString inPlaceOfInput;
    bool isBinary = false; ///< otherwise line ends become the platform's
};

/// The sentence for a file of numbers with so many decimals.
QString decimalsInPlaceOfInput(unsigned decimals);

/// Runs @p fileExport; @p page is the parent of its dialogs. It ends silently when a dialog or the
/// writing is cancelled, or the page or the session is deleted while a dialog is open. Asks before
/// it replaces the session's input. After a failure or cancelling the file is as writeFile() leaves
/// it.
/// @param session  null when it has been deleted
/// @param write  writes bytes, text as Latin-1; see writeFile()
/// @return the path of the file that has been written, else an empty one
QString runExport(QWidget* page, SessionFace* session, const FileExport& fileExport,
                  const std::function<void(std::ostream&)>& write);

/// What the user chose in a save dialog.
struct ChosenFile
{
    QString path;
    QString filter; ///< the one selected in the dialog
};

/// The same for files whose form depends on what was chosen.
QString runExport(QWidget* page, SessionFace* session, const FileExport& fileExport,
                  const std::function<void(std::ostream&, const ChosenFile&)>& write);
