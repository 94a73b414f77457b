// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

/// Lets the numerical core and the readers report their faults in modal boxes without a parent.
void installErrorBox();
