// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "output/tabletext.h"

class QAbstractItemView;

enum class CopiedDigits {
    AsShown, ///< numbers of the diagram with the decimals of the settings
    All      ///< the shortest plain decimals that read back equal
};

/// Gives a table a context menu of ways to copy it, of which the first has the key Ctrl+Insert.
/// What goes to the clipboard is the selection, or the whole table when nothing is selected, with
/// both headers. Opening the menu does not change the selection.
void installTableCopy(QAbstractItemView* view);

/// What is copied, in the order of the model. To be used before the table changes.
TableGrid copiedGrid(const QAbstractItemView& view, CopiedDigits digits);
