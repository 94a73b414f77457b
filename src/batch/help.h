// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace batch {

/// What "analyse --help" prints.
QString analyseHelp();

} // namespace batch
