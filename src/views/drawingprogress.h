// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/progress.h"

#include <QBuffer>

#include <cstddef>
#include <new>

/// Counts the marks of a drawing, its circles and texts, and asks about every millisecond whether
/// to go on.
class DrawingMeter
{
public:
    /// @param marks  how many there will be; 0 where that is not known
    explicit DrawingMeter(std::size_t marks = 0) : m_marks(static_cast<double>(marks)) {}

    /// One more. Throws std::bad_alloc when the user cancels.
    void count()
    {
        constexpr double operations = 2000.0;
        m_done += 1.0;
        if (m_marks > 0.0)
            m_meter.progress().done = m_done / m_marks;
        if (!m_meter.goOnAfter(operations))
            throw std::bad_alloc();
    }

private:
    pelmora::ProgressMeter m_meter{{.work = pelmora::Progress::Work::Drawing}};
    double m_marks;
    double m_done = 0.0;
};

/// Takes a compressed file. Compressing takes longer than drawing, so every piece asks whether to
/// go on and is refused when the user cancels.
class WatchedBuffer : public QBuffer
{
public:
    using QBuffer::QBuffer;

protected:
    qint64 writeData(const char* data, qint64 size) override
    {
        const bool wanted = pelmora::goOn({.work = pelmora::Progress::Work::Drawing});
        return wanted ? QBuffer::writeData(data, size) : -1;
    }
};
