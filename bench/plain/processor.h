// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora::plain {

/// The instructions that the plain numerics are built for, in words.
const char* processor();

} // namespace pelmora::plain
