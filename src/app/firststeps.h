// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QAction;
class QLabel;
class QWidget;

/// A label, in the colour of placeholders, that says how to begin. It names the shortcuts of the
/// two actions that read a file.
QLabel* makeFirstSteps(QWidget* parent, const QAction& readData, const QAction& readCorrelations);
