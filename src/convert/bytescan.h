// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/encoding.h"

#include <bit>
#include <cstddef>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace convert {

/// Finds the bytes that end fields: the separator, CR, LF and NUL (blanks and tabs alike where the
/// blank separates). It looks at 64 bytes at once, and at each only once while the positions asked
/// for ascend. 64 bytes from a position on must be readable.
class ByteScan
{
public:
    explicit ByteScan(char separator)
        : m_separator(separator)
        , m_second(separator == ' ' ? '\t' : separator)
    {
    }

    /// The first such byte at @p p or after it.
    const char* find(const char* p)
    {
        if (m_window == nullptr || p < m_window || p >= m_window + SourceText::margin)
            look(p);
        std::uint64_t found = m_found & (~std::uint64_t(0) << (p - m_window));
        while (found == 0) {
            look(m_window + SourceText::margin);
            found = m_found;
        }
        return m_window + std::countr_zero(found);
    }

private:
    void look(const char* window);

    char m_separator;
    char m_second;
    const char* m_window = nullptr;
    std::uint64_t m_found = 0; ///< one bit per byte of the window, the first in the lowest
};

inline void ByteScan::look(const char* window)
{
    m_window = window;
    m_found = 0;
#ifdef __SSE2__
    for (unsigned i = 0; i < SourceText::margin / 16; ++i) {
        const __m128i bytes =
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(window + std::size_t(16) * i));
        const auto equal = [bytes](char byte) {
            return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte));
        };
        const __m128i found =
            _mm_or_si128(_mm_or_si128(equal(m_separator), equal(m_second)),
                         _mm_or_si128(_mm_or_si128(equal('\n'), equal('\r')), equal('\0')));
        m_found |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(found)))
                   << (16 * i);
    }
#else
    for (unsigned i = 0; i < SourceText::margin; ++i) {
        const char byte = window[i];
        const bool ends =
            byte == m_separator || byte == m_second || byte == '\n' || byte == '\r' || byte == '\0';
        m_found |= std::uint64_t(ends) << i;
    }
#endif
}

} // namespace convert
