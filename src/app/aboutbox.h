// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// Shows who made the program, which version it is and when it was built; returns when closed.
void showAboutBox(QWidget* parent);
