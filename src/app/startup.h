// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QApplication;

/// Names the program for the settings store and the desktop.
void nameApplication();

/// Shows the welcome screen where wanted, then the main window, and runs the event loop.
/// @returns the event loop's exit code
int runProgram(QApplication& application);
