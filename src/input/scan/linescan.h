// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/scan/charclass.h"

#include <cstring>

namespace pelmora {

/// The start of the next line after a NUL: the rest of its line, up to the line feed, is ignored.
inline const char* behindLineFeed(const char* p, const char* end)
{
    const auto* lineFeed =
        static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
    return lineFeed ? lineFeed + 1 : end;
}

/// Calls @p takePiece with the start of every piece of text between line ends. It returns the end
/// of the piece: the CR, LF or NUL after it. Empty pieces are skipped.
/// @param p    start of a run of whole lines
/// @param end  end of the run; NUL bytes follow where the last line has no line feed
template <typename TakePiece>
void scanLines(const char* p, const char* end, TakePiece takePiece)
{
    while (p < end) {
        switch (classOf(*p)) {
        case ByteClass::LineEnd:
            ++p;
            break;
        case ByteClass::Nul:
            p = behindLineFeed(p, end);
            break;
        default:
            p = takePiece(p);
        }
    }
}

inline const char* pieceEnd(const char* p)
{
    while (classOf(*p) != ByteClass::LineEnd && classOf(*p) != ByteClass::Nul)
        ++p;
    return p;
}

inline const char* skipBlanks(const char* p)
{
    while (classOf(*p) == ByteClass::Blank)
        ++p;
    return p;
}

inline bool isNameLine(const char* p)
{
    return std::strncmp(skipBlanks(p), "vname", 5) == 0;
}

} // namespace pelmora
