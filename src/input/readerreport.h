// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMessageBox>

/// Shows a reader's message in a modal box without parent, with one Ok button. Texts from a file
/// are shown as they are, never as rich text.
void showReaderReport(QMessageBox::Icon icon, const QString& title, const QString& text);
