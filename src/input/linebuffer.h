// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/numberscan.h"

#include <cstddef>
#include <memory>

class QFile;

namespace pelmora {

/// Reads a file in large chunks and hands out runs of whole lines: each run ends with a line feed,
/// save perhaps the file's last. A line longer than a chunk makes the buffer grow.
class LineBuffer
{
public:
    explicit LineBuffer(QFile& file) : m_file(file) {}

    /// Goes to the next run; false at the end of the file and after a fault.
    bool next();

    /// The run; NUL bytes stand behind one that does not end with a line feed.
    const char* begin() const { return m_bytes.get(); }
    const char* end() const { return m_bytes.get() + m_run; }

    /// Whether reading failed, or the memory for a line.
    bool failed() const { return m_failed; }

private:
    struct Free
    {
        void operator()(char* bytes) const;
    };

    void dropRun();
    bool readMore();
    bool grow();

    QFile& m_file;
    std::unique_ptr<char[], Free> m_bytes;
    std::size_t m_capacity = 0;
    std::size_t m_size = 0; ///< bytes read and not yet dropped
    std::size_t m_run = 0;  ///< how many of them make up the run
    bool m_atEnd = false;
    bool m_failed = false;
};

} // namespace pelmora
