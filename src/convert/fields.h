// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/encoding.h"
#include "convert/options.h"
#include "convert/table.h"

#include <QString>

#include <cstddef>

namespace convert {

/// A file split at one separator, up to its first fault.
struct Reading
{
    enum class Fault { None, Ragged, EmptyLine, TextBehindQuote, OpenQuote, SkippedInsideQuotes };

    Separator separator = Separator::Unknown;
    Table table;
    Fault fault = Fault::None;
    std::size_t faultPlace = 0;     ///< in the text; for quotes where the field begins
    std::size_t faultFields = 0;    ///< fields of a ragged row
    std::size_t fields = 0;         ///< fields of the first row
    std::size_t droppedLines = 0;   ///< empty ones at the end
    std::size_t droppedColumns = 0; ///< empty ones at the right
    bool isSettled = false;         ///< the separator was named by the user or the file

    bool isRectangle() const { return fault == Fault::None && table.rows() > 0; }
    bool isSingleColumn() const { return isRectangle() && fields == 1; }
};

/// Splits the text: quotes, doubled quotes and line ends inside them as in RFC 4180; LF, CR LF
/// and CR end lines. Empty lines and lines of separators alone at the end are dropped. Ends at the
/// first fault.
/// @param begin  where the first line to be read begins, whose number is @p line
/// @param skip   lines to leave out
/// @param mayMissCorner  whether a first row that is one field shorter than all others is fine
Reading takeApart(const SourceText& text, std::size_t begin, std::size_t line, Separator separator,
                  const Ranges& skip, bool mayMissCorner);

/// What the fault says, with its line.
QString faultText(const SourceText& text, const Reading& reading);

QString nameOf(Separator separator);

} // namespace convert
