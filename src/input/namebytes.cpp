// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/namebytes.h"

#include <algorithm>
#include <array>

namespace namebytes {

namespace {

constexpr char16_t open = 0xFFFD;
constexpr unsigned firstByte = 0x80;

/// The letters of the bytes from firstByte on.
constexpr std::array<char16_t, 32> letters = {
    0x20AC, open,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, open,   0x017D, open,   open,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, open,   0x017E, 0x0178};

bool isOwnByte(char16_t code)
{
    return code < firstByte || (code >= firstByte + letters.size() && code <= 0xFF);
}

char toByte(char16_t code)
{
    if (isOwnByte(code))
        return static_cast<char>(code);
    const auto found = std::find(letters.begin(), letters.end(), code);
    if (found == letters.end() || code == open)
        return '?';
    return static_cast<char>(firstByte + static_cast<unsigned>(found - letters.begin()));
}

char16_t toCode(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return isOwnByte(code) ? code : letters[code - firstByte];
}

} // namespace

QString toText(const std::string& bytes)
{
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char byte : bytes)
        text.append(QChar(toCode(byte)));
    return text;
}

std::string toBytes(const QString& text)
{
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (const QChar character : text)
        bytes.push_back(toByte(character.unicode()));
    return bytes;
}

} // namespace namebytes
