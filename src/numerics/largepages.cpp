// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/largepages.h"

#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace pelmora {

void adviseLargePages([[maybe_unused]] void* block, [[maybe_unused]] std::size_t size)
{
#ifdef MADV_HUGEPAGE
    constexpr std::size_t smallest = 4 * 1024 * 1024; // holds a large page wherever it begins
    if (size < smallest)
        return;
    // Whole pages, to both ends: advice for a part splits the mapping, and a split mapping cannot
    // be enlarged in place.
    const auto pageMask = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE)) - 1;
    const std::uintptr_t begin = reinterpret_cast<std::uintptr_t>(block) & ~pageMask;
    const std::uintptr_t end =
        (reinterpret_cast<std::uintptr_t>(block) + size + pageMask) & ~pageMask;
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#endif
}

} // namespace pelmora
