// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace pelmora {

struct Free
{
    void operator()(void* block) const { std::free(block); }
};

/// A block that can be enlarged in place, unlike a vector.
template <typename T>
using MallocBlock = std::unique_ptr<T[], Free>;

/// False without memory; the block then stays as it is.
template <typename T>
bool resize(MallocBlock<T>& block, std::size_t count)
{
    auto* resized = static_cast<T*>(std::realloc(block.get(), count * sizeof(T)));
    if (!resized)
        return false;
    static_cast<void>(block.release());
    block.reset(resized);
    return true;
}

} // namespace pelmora
