// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/sessionface.h"

// Only the meta-object of the signal lives here.
#include "moc_sessionface.cpp"
