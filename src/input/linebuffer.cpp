// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/linebuffer.h"

#include <QFile>

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace pelmora {

namespace {

constexpr std::size_t chunkSize = 256 * 1024;

} // namespace

void LineBuffer::Free::operator()(char* bytes) const
{
    std::free(bytes);
}

bool LineBuffer::next()
{
    dropRun();
    while (!m_atEnd && !m_failed && m_run == 0) {
        const std::size_t searched = m_size;
        if (!readMore())
            break;
        const std::string_view fresh(m_bytes.get() + searched, m_size - searched);
        if (const auto lineFeed = fresh.rfind('\n'); lineFeed != std::string_view::npos)
            m_run = searched + lineFeed + 1;
    }
    if (m_atEnd && m_run == 0)
        m_run = m_size;
    return m_run > 0 && !m_failed;
}

void LineBuffer::dropRun()
{
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
    const qint64 count =
        m_file.read(m_bytes.get() + m_size, static_cast<qint64>(m_capacity - m_size));
    m_failed = count < 0;
    m_atEnd = count == 0;
    if (count > 0)
        m_size += static_cast<std::size_t>(count);
    std::memset(m_bytes.get() + m_size, 0, numberscan::margin);
    return count > 0;
}

bool LineBuffer::grow()
{
    const std::size_t capacity = m_capacity == 0 ? chunkSize : 2 * m_capacity;
    auto* bytes = static_cast<char*>(std::realloc(m_bytes.get(), capacity + numberscan::margin));
    if (!bytes)
        return false;
    static_cast<void>(m_bytes.release());
    m_bytes.reset(bytes);
    m_capacity = capacity;
    return true;
}

} // namespace pelmora
