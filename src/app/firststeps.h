// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QAction;
class QLabel;
class QWidget;

/// What to do first, in quiet letters, with the keys of the two actions that read a file.
QLabel* makeFirstSteps(QWidget* parent, const QAction& readData, const QAction& readCorrelations);
