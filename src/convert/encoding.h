// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/options.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstddef>

namespace convert {

/// The bytes of a file as UTF-8, with room on both sides: one byte in front of the text and
/// SourceText::margin NUL bytes after it can be read.
class SourceText
{
public:
    static constexpr std::size_t margin = 64;
    /// Places in a text are 32-bit numbers.
    static constexpr std::size_t largest = 0xFFFFFF00;

    SourceText() = default;
    /// @param buffer  one byte, the text, @ref margin NUL bytes
    SourceText(QByteArray buffer, std::size_t begin, Encoding encoding, bool guessed);

    /// First and last place of the text; the first is at least 1.
    std::size_t begin() const { return m_begin; }
    std::size_t end() const { return m_end; }
    const char* bytes() const { return m_bytes; }
    bool isEmpty() const { return m_begin == m_end; }

    Encoding encoding() const { return m_encoding; }
    /// Whether the bytes are no valid UTF-8, so that Windows-1252 was taken.
    bool isGuessed() const { return m_guessed; }

    /// Line of the byte at @p place, from 1: LF, CR LF and CR end lines.
    std::size_t lineOf(std::size_t place) const;

private:
    QByteArray m_buffer;
    const char* m_bytes = nullptr;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    Encoding m_encoding = Encoding::Utf8;
    bool m_guessed = false;
};

/// A buffer for @p size bytes of a file, which go to its second byte and on; SourceText's margins
/// are set.
QByteArray bufferFor(std::size_t size);
/// The same with @p content in it.
QByteArray bufferOf(QByteArrayView content);

/// Recognises the encoding and converts to UTF-8. Throws Refusal for workbooks, NUL bytes, and
/// bytes that the encoding does not know.
/// @param buffer  as bufferFor() makes it
SourceText decoded(QByteArray buffer, Encoding encoding);

/// The name as the command line takes it; Unknown for any other text.
Encoding encodingNamed(const QString& name);
QString nameOf(Encoding encoding);

} // namespace convert
