// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/processor.h"

namespace pelmora::plain {

const char* processor()
{
#if defined(__AVX2__) && defined(__FMA__)
    return "AVX2, FMA";
#elif defined(__AVX2__)
    return "AVX2, no FMA";
#else
    return "the oldest processor of its kind";
#endif
}

} // namespace pelmora::plain
