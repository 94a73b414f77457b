// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace pelmora {

/// Asks for large pages under a block that is about to be filled: pages of the usual size are
/// faulted in one by one, which costs a large matrix more time than its numbers do. Only a hint;
/// does nothing where blocks are small or the system knows no such hint.
void adviseLargePages(void* block, std::size_t size);

} // namespace pelmora
