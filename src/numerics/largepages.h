// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace pelmora {

/// Asks for large pages for a block that is about to be filled: the page faults of usual pages cost
/// a large matrix more time than its computation. Only a hint, without effect for small blocks and
/// on systems that know none.
void adviseLargePages(void* block, std::size_t size);

} // namespace pelmora
