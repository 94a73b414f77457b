// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/scan/linebuffer.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace pelmora {

bool LineBuffer::next()
{
    dropRun();
    while (!m_atEnd && !m_failed && m_run == 0) {
        const std::size_t searched = m_size;
        if (readMore())
            findRun(searched);
    }
    if (m_atEnd && m_run == 0)
        m_run = m_size;
    return m_run > 0 && !m_failed;
}

void LineBuffer::findRun(std::size_t searched)
{
    constexpr auto none = std::string_view::npos;
    const std::string_view bytes(m_bytes.get(), m_size);
    const std::string_view fresh = bytes.substr(searched);
    auto lineEnd = fresh.rfind('\n');
    if (lineEnd == none) {
        if (const auto nul = bytes.find('\0'); nul != none) {
            cutBehind(nul);
            return;
        }
        lineEnd = fresh.rfind('\r');
    }
    if (lineEnd != none)
        m_run = searched + lineEnd + 1;
}

/// Bytes after a NUL are ignored up to the line feed, so they need not be kept: a file without line
/// feeds must not fill the memory.
void LineBuffer::cutBehind(std::size_t nul)
{
    m_cutPosition = nul + 1;
    m_cutBytes += m_size - m_cutPosition;
    m_size = m_cutPosition;
    std::memset(m_bytes.get() + m_size, 0, numberscan::margin);
}

std::uint64_t LineBuffer::bytesBefore(const char* position) const
{
    const auto inRun = static_cast<std::size_t>(position - m_bytes.get());
    return m_bytesBefore + inRun + (inRun >= m_cutPosition ? m_cutBytes : 0);
}

void LineBuffer::dropRun()
{
    m_bytesBefore += m_run + m_cutBytes;
    m_cutBytes = 0;
    m_size -= m_run;
    if (m_run > 0 && m_size > 0)
        std::memmove(m_bytes.get(), m_bytes.get() + m_run, m_size);
    m_run = 0;
}

bool LineBuffer::readMore()
{
    if (m_size == m_capacity && !grow()) {
        m_failed = true;
        return false;
    }
    // After a long line the buffer is larger than a chunk; what is read stays chunk-sized.
    const std::size_t room = std::min(m_capacity - m_size, m_chunkSize);
    const qint64 count = m_file.read(m_bytes.get() + m_size, static_cast<qint64>(room));
    m_failed = count < 0;
    m_atEnd = count == 0;
    if (count > 0)
        m_size += static_cast<std::size_t>(count);
    std::memset(m_bytes.get() + m_size, 0, numberscan::margin);
    return count > 0;
}

bool LineBuffer::grow()
{
    const std::size_t capacity = m_capacity == 0 ? m_chunkSize : 2 * m_capacity;
    if (!resize(m_bytes, capacity + numberscan::margin))
        return false;
    m_capacity = capacity;
    return true;
}

} // namespace pelmora
