// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/encoding.h"

#include "convert/codepages.h"
#include "convert/refusal.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace convert {

namespace {

struct NamedEncoding
{
    Encoding encoding;
    const char* name;
};

constexpr std::array<NamedEncoding, 7> encodings = {{{Encoding::Utf8, "utf-8"},
                                                     {Encoding::Utf16LittleEndian, "utf-16le"},
                                                     {Encoding::Utf16BigEndian, "utf-16be"},
                                                     {Encoding::Windows1250, "windows-1250"},
                                                     {Encoding::Windows1251, "windows-1251"},
                                                     {Encoding::Windows1252, "windows-1252"},
                                                     {Encoding::Windows1253, "windows-1253"}}};

std::string_view contentOf(const QByteArray& buffer)
{
    return std::string_view(buffer.constData(), static_cast<std::size_t>(buffer.size()))
        .substr(1, static_cast<std::size_t>(buffer.size()) - 1 - SourceText::margin);
}

std::size_t lineAt(std::string_view content, std::size_t place)
{
    std::size_t line = 1;
    for (std::size_t i = 0; i < place; ++i)
        line += content[i] == '\n' ||
                (content[i] == '\r' && (i + 1 == content.size() || content[i + 1] != '\n'));
    return line;
}

void refuseWorkbook(std::string_view content)
{
    using namespace std::string_view_literals;
    if (content.substr(0, 4) == "PK\x03\x04"sv || content.substr(0, 4) == "\xD0\xCF\x11\xE0"sv)
        throw Refusal(tr("The file is a workbook: save the sheet as CSV."));
}

struct ByteOrderMark
{
    Encoding encoding = Encoding::Unknown;
    std::size_t size = 0;
};

ByteOrderMark byteOrderMark(std::string_view content)
{
    if (content.substr(0, 3) == "\xEF\xBB\xBF")
        return {Encoding::Utf8, 3};
    if (content.substr(0, 2) == "\xFF\xFE")
        return {Encoding::Utf16LittleEndian, 2};
    if (content.substr(0, 2) == "\xFE\xFF")
        return {Encoding::Utf16BigEndian, 2};
    return {};
}

unsigned char byteAt(std::string_view text, std::size_t place)
{
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
}

/// Length of the UTF-8 sequence at @p place; 0 where it is none (overlong forms, surrogates and
/// what lies beyond Unicode among them).
std::size_t sequenceAt(std::string_view text, std::size_t place)
{
    const unsigned char first = byteAt(text, place);
    const unsigned char second = byteAt(text, place + 1);
    const auto follows = [text, place](std::size_t k) {
        return (byteAt(text, place + k) & 0xC0) == 0x80;
    };
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return follows(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const bool fits = (first != 0xE0 || second >= 0xA0) && (first != 0xED || second < 0xA0);
        return fits && follows(1) && follows(2) ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool fits = (first != 0xF0 || second >= 0x90) && (first != 0xF4 || second < 0x90);
        return fits && follows(1) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

/// Place of the first byte that is no UTF-8; the size where there is none.
std::size_t firstInvalid(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size()) {
        std::uint64_t word = 0;
        while (i + sizeof word <= text.size()) {
            std::memcpy(&word, text.data() + i, sizeof word);
            if ((word & 0x8080808080808080) != 0)
                break;
            i += sizeof word;
        }
        if (i == text.size())
            break;
        const std::size_t length = sequenceAt(text, i);
        if (length == 0)
            return i;
        i += length;
    }
    return text.size();
}

[[noreturn]] void refuseInvalid(Encoding encoding, std::size_t line)
{
    throw Refusal(tr("line %1: not valid %2; name the file's encoding by --encoding.")
                      .arg(line)
                      .arg(nameOf(encoding)));
}

void refuseNuls(std::string_view content)
{
    if (const auto nul = content.find('\0'); nul != std::string_view::npos)
        throw Refusal(tr("line %1: the file holds NUL bytes, so it is no text; UTF-16 without a "
                         "byte-order mark is read with --encoding utf-16le or --encoding "
                         "utf-16be.")
                          .arg(lineAt(content, nul)));
}

std::string_view fromUtf16(std::string_view content, Encoding encoding, QByteArray& utf8)
{
    QStringDecoder decoder(encoding == Encoding::Utf16LittleEndian ? QStringDecoder::Utf16LE
                                                                   : QStringDecoder::Utf16BE,
                           QStringDecoder::Flag::Stateless);
    const QString text =
        decoder(QByteArrayView(content.data(), static_cast<qsizetype>(content.size())));
    // The decoder puts U+FFFD in the place of what it cannot read; some versions do so silently.
    const bool broken = decoder.hasError() || content.size() % 2 != 0 || !text.isValidUtf16();
    utf8 = text.toUtf8();
    const std::string_view bytes(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    if (broken) {
        const auto mark = bytes.find("\xEF\xBF\xBD");
        refuseInvalid(encoding, lineAt(bytes, std::min(mark, bytes.size())));
    }
    return bytes;
}

} // namespace

SourceText::SourceText(QByteArray buffer, std::size_t begin, Encoding encoding, bool guessed)
    : m_buffer(std::move(buffer))
    , m_bytes(m_buffer.constData())
    , m_begin(begin)
    , m_end(static_cast<std::size_t>(m_buffer.size()) - margin)
    , m_encoding(encoding)
    , m_guessed(guessed)
{
}

std::size_t SourceText::lineOf(std::size_t place) const
{
    return lineAt(std::string_view(m_bytes + m_begin, m_end - m_begin), place - m_begin);
}

QByteArray bufferFor(std::size_t size)
{
    if (size > SourceText::largest)
        throw Refusal(tr("Files of 4 GB and more are too large."));
    QByteArray buffer(static_cast<qsizetype>(size + 1 + SourceText::margin), Qt::Uninitialized);
    buffer[0] = '\n';
    std::fill(buffer.end() - static_cast<qsizetype>(SourceText::margin), buffer.end(), '\0');
    return buffer;
}

QByteArray bufferOf(QByteArrayView content)
{
    QByteArray buffer = bufferFor(static_cast<std::size_t>(content.size()));
    std::copy(content.begin(), content.end(), buffer.begin() + 1);
    return buffer;
}

SourceText decoded(QByteArray buffer, Encoding encoding)
{
    const std::string_view content = contentOf(buffer);
    refuseWorkbook(content);
    const ByteOrderMark mark = byteOrderMark(content);
    if (mark.size > 0 && encoding != Encoding::Unknown && encoding != mark.encoding)
        throw Refusal(tr("The file's byte-order mark says %1, not %2: leave out --encoding.")
                          .arg(nameOf(mark.encoding), nameOf(encoding)));
    const bool named = mark.size > 0 || encoding != Encoding::Unknown;
    if (mark.size > 0)
        encoding = mark.encoding;

    if (encoding == Encoding::Utf16LittleEndian || encoding == Encoding::Utf16BigEndian) {
        QByteArray utf8;
        const std::string_view text = fromUtf16(content.substr(mark.size), encoding, utf8);
        refuseNuls(text);
        return SourceText(bufferOf(text), 1, encoding, false);
    }
    refuseNuls(content);
    if (!named || encoding == Encoding::Utf8) {
        const std::size_t invalid = firstInvalid(content);
        if (invalid == content.size())
            return SourceText(std::move(buffer), 1 + mark.size, Encoding::Utf8, false);
        if (named)
            refuseInvalid(Encoding::Utf8, lineAt(content, invalid));
        encoding = Encoding::Windows1252;
    }
    return SourceText(bufferOf(fromCodePage(content, encoding)), 1, encoding, !named);
}

Encoding encodingNamed(const QString& name)
{
    const auto found =
        std::find_if(encodings.begin(), encodings.end(), [&name](const NamedEncoding& entry) {
            return name.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0;
        });
    return found == encodings.end() ? Encoding::Unknown : found->encoding;
}

QString nameOf(Encoding encoding)
{
    const auto found =
        std::find_if(encodings.begin(), encodings.end(),
                     [encoding](const NamedEncoding& entry) { return entry.encoding == encoding; });
    return found == encodings.end() ? QString() : QString::fromLatin1(found->name);
}

} // namespace convert
