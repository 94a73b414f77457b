// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/scan/mallocblock.h"
#include "input/scan/numberscan.h"

#include <cstddef>
#include <cstdint>

class QFile;

namespace pelmora {

/// Reads a file in large chunks and hands out runs of whole lines: each run ends with a line feed
/// (a carriage return where there are none), except perhaps the file's last. A line longer than a
/// chunk makes the buffer grow.
class LineBuffer
{
public:
    static constexpr std::size_t usualChunk = 256 * 1024;

    /// Reads on from the current position of @p file.
    explicit LineBuffer(QFile& file, std::size_t chunkSize = usualChunk)
        : m_file(file)
        , m_chunkSize(chunkSize)
    {
    }

    /// Goes to the next run; false at the end of the file and after a fault.
    bool next();

    /// The run; NUL bytes follow one without line end.
    const char* begin() const { return m_bytes.get(); }
    const char* end() const { return m_bytes.get() + m_run; }

    /// How many bytes of the file were handed out or passed over before @p position, which is in
    /// the run.
    std::uint64_t bytesBefore(const char* position) const;

    /// Whether reading failed, or the memory for a line.
    bool failed() const { return m_failed; }

private:
    void dropRun();
    bool readMore();
    void findRun(std::size_t searched);
    void cutBehind(std::size_t nul);
    bool grow();

    QFile& m_file;
    std::size_t m_chunkSize;
    MallocBlock<char> m_bytes;
    std::size_t m_capacity = 0;
    std::size_t m_size = 0;          ///< bytes read and not yet dropped
    std::size_t m_run = 0;           ///< how many of them make up the run
    std::uint64_t m_bytesBefore = 0; ///< in the file, before those
    std::size_t m_cutPosition = 0;   ///< where bytes after a NUL were dropped
    std::uint64_t m_cutBytes = 0;    ///< how many
    bool m_atEnd = false;
    bool m_failed = false;
};

} // namespace pelmora
