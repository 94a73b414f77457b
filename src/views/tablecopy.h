// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QAbstractItemView;

/// Gives a table a context menu entry "Copy" and Ctrl+Insert: the selection, or the whole table
/// when nothing is selected, goes to the clipboard as tab-separated text with both headers.
void installTableCopy(QAbstractItemView* view);

/// The text that is copied.
QString tableText(const QAbstractItemView& view);
