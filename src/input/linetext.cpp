// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/linetext.h"

#include "input/scan/charclass.h"

#include <algorithm>
#include <climits>
#include <optional>

namespace linetext {

namespace {

constexpr QStringView keyword = u"vname";

bool blank(QChar character)
{
    return pelmora::isBlank(character.unicode());
}

bool digit(QChar character)
{
    return pelmora::isDigit(character.unicode());
}

/// The first @p most pieces between separators.
template <typename IsSeparator>
QList<QStringView> split(QStringView line, IsSeparator isSeparator, qsizetype most)
{
    QList<QStringView> pieces;
    auto from = line.begin();
    while (pieces.size() < most &&
           (from = std::find_if_not(from, line.end(), isSeparator)) != line.end()) {
        const auto to = std::find_if(from, line.end(), isSeparator);
        pieces.append(QStringView(from, to));
        from = to;
    }
    return pieces;
}

/// A keyword with the number after it and all blanks around.
struct Header
{
    qsizetype begin;
    qsizetype end;
};

/// The header whose keyword is at @p position, if a number follows there.
std::optional<Header> headerAt(QStringView line, qsizetype position)
{
    const auto skip = [line](qsizetype from, bool (*matches)(QChar)) {
        return std::find_if_not(line.begin() + from, line.end(), matches) - line.begin();
    };
    const qsizetype number = skip(position + keyword.size(), blank);
    const qsizetype numberEnd = skip(number, digit);
    if (numberEnd == number)
        return std::nullopt;
    while (position > 0 && blank(line[position - 1]))
        --position;
    return Header{position, skip(numberEnd, blank)};
}

std::optional<Header> nextHeader(QStringView line, qsizetype from)
{
    for (;;) {
        const qsizetype position = line.indexOf(keyword, from);
        if (position < 0)
            return std::nullopt;
        if (const auto header = headerAt(line, position))
            return header;
        from = position + 1;
    }
}

/// The first text that is not a header.
QStringView nameIn(QStringView line)
{
    qsizetype from = 0;
    while (const auto header = nextHeader(line, from)) {
        if (header->begin > from)
            return line.sliced(from, header->begin - from);
        from = header->end;
    }
    return line.sliced(from);
}

std::optional<int> toInteger(QStringView text)
{
    const bool isSigned = text.startsWith(u'+') || text.startsWith(u'-');
    const QStringView digits = text.sliced(isSigned ? 1 : 0);
    if (!std::all_of(digits.begin(), digits.end(), digit))
        return std::nullopt;
    bool ok = false;
    const int number = text.toInt(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

} // namespace

bool isBlank(char16_t code)
{
    return pelmora::isBlank(code);
}

QStringView trimmed(QStringView line)
{
    while (!line.isEmpty() && blank(line.front()))
        line = line.sliced(1);
    while (!line.isEmpty() && blank(line.back()))
        line.chop(1);
    return line;
}

Kind kindOf(QStringView line)
{
    if (line.startsWith(keyword))
        return Name;
    const auto numeric = [](QChar character) { return pelmora::isNumeric(character.unicode()); };
    return std::all_of(line.begin(), line.end(), numeric) ? Data : Other;
}

QList<QStringView> entries(QStringView line)
{
    return split(
        line, [](QChar character) { return blank(character) || character == u','; }, line.size());
}

int parseName(const QString& line, QString& name)
{
    const auto number = toInteger(split(line, blank, 2).value(1));
    if (!number) {
        name.clear();
        return -1;
    }
    name = nameIn(line).toString();
    return std::max(*number, INT_MIN + 1) - 1;
}

} // namespace linetext
