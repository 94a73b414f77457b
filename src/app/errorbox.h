// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

/// Lets the numerical core report its faults in a modal warning box.
void installErrorBox();
