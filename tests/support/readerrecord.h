// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/readerreport.h"

#include <QStringList>

#include <utility>

/// Collects what the readers report while it lives; one at a time.
class ReaderRecord
{
public:
    ReaderRecord() : m_previous(setReaderReport(take)) { reports().clear(); }
    ~ReaderRecord() { setReaderReport(m_previous); }
    ReaderRecord(const ReaderRecord&) = delete;
    ReaderRecord& operator=(const ReaderRecord&) = delete;

    /// "title|text" for every message, in order; cleared by the call.
    QStringList takeRecord() { return std::exchange(reports(), {}); }

private:
    static QStringList& reports()
    {
        static QStringList list;
        return list;
    }
    static void take(const ReaderMessage& message)
    {
        reports() << message.title + u'|' + message.text;
    }

    ReaderReport m_previous;
};
