// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/names.h"

#include "convert/letters.h"
#include "input/linetext.h"
#include "input/namebytes.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace convert {

namespace {

/// The readers trim it from the ends of a name.
bool isTrimmed(char byte)
{
    return linetext::isBlank(static_cast<unsigned char>(byte));
}

bool endsLine(QChar letter)
{
    switch (letter.unicode()) {
    case u'\n':
    case u'\r':
    case u'\x0B':
    case u'\x0C':
    case u'\x85':
    case u'\x2028':
    case u'\x2029':
        return true;
    default:
        return false;
    }
}

/// Line ends and other controls that no line can hold become blanks, CR LF one of them.
QString withBlanks(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar& letter : text)
        if (endsLine(letter) || letter.unicode() < 0x20 || letter.unicode() == 0x7F)
            letter = u' ';
    return text;
}

/// The byte of a letter; nothing where the names' bytes cannot hold it.
std::optional<char> byteOf(char32_t letter)
{
    const QString text = QString::fromUcs4(&letter, 1);
    const std::string bytes = namebytes::toBytes(text);
    const bool isKept = bytes.size() == 1 && letter != 0xFFFD && namebytes::toText(bytes) == text;
    return isKept ? std::optional(bytes.front()) : std::nullopt;
}

void append(std::string& bytes, char32_t letter);

/// A letter without its marks, or the letters of a ligature.
void appendDecomposed(std::string& bytes, char32_t letter)
{
    const QString text = QString::fromUcs4(&letter, 1);
    const QString parts = text.normalized(QString::NormalizationForm_KD);
    if (parts == text)
        return;
    for (const char32_t part : parts.toUcs4())
        append(bytes, part);
}

void append(std::string& bytes, char32_t letter)
{
    if (const auto byte = byteOf(letter))
        bytes += *byte;
    else if (const char* nearest = nearestLetters(letter))
        bytes += nearest;
    else
        appendDecomposed(bytes, letter);
}

void breakUpKeyword(std::string& bytes)
{
    constexpr std::string_view keyword = "vname";
    for (auto at = bytes.find(keyword); at != std::string::npos; at = bytes.find(keyword, at))
        bytes.insert(at + 1, 1, ' ');
}

void trim(std::string& bytes)
{
    while (!bytes.empty() && isTrimmed(bytes.back()))
        bytes.pop_back();
    bytes.erase(bytes.begin(), std::find_if_not(bytes.begin(), bytes.end(), isTrimmed));
}

} // namespace

std::string cleanedName(const QString& name)
{
    std::string bytes;
    const QString text = withBlanks(name.normalized(QString::NormalizationForm_C));
    for (const char32_t letter : text.toUcs4())
        append(bytes, letter);
    breakUpKeyword(bytes);
    trim(bytes);
    return bytes;
}

void VariableNameList::add(const QString& name, std::size_t place)
{
    std::string bytes = cleanedName(name);
    if (bytes.empty())
        bytes = std::string("V").append(std::to_string(place));
    m_names.push_back({name, std::move(bytes), place});
}

void VariableNameList::finish()
{
    std::unordered_map<std::string, std::size_t> count;
    for (const Name& name : m_names)
        ++count[name.bytes];
    std::unordered_set<std::string> taken;
    std::unordered_map<std::string, std::size_t> last;
    for (Name& name : m_names) {
        if (taken.insert(name.bytes).second)
            continue;
        std::string numbered;
        std::size_t& number = last.try_emplace(name.bytes, 1).first->second;
        do
            numbered = name.bytes + ' ' + std::to_string(++number);
        while (count.count(numbered) > 0 || taken.count(numbered) > 0);
        taken.insert(numbered);
        name.bytes = std::move(numbered);
    }
}

QString VariableNameList::text(std::size_t index) const
{
    return namebytes::toText(m_names[index].bytes);
}

std::vector<VariableNameList::Change> VariableNameList::changes() const
{
    std::vector<Change> changes;
    for (std::size_t i = 0; i < m_names.size(); ++i)
        if (const QString to = text(i); to != m_names[i].original)
            changes.push_back({m_names[i].place, m_names[i].original, to});
    return changes;
}

} // namespace convert
