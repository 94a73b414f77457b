// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/fields.h"

namespace convert {

/// The file taken apart at its separator, its rows and columns exchanged where the options ask for
/// it. Throws Refusal where no separator, or more than one, gives a table.
Reading findSeparator(const SourceText& text, const Options& options);

} // namespace convert
