// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/variablenames.h"

#include "input/namebytes.h"

#include <algorithm>
#include <ostream>

namespace {

/// A line break or NUL would end the name line that the name is written to.
std::string toBytes(const QString& text)
{
    std::string bytes = namebytes::toBytes(text);
    std::replace_if(
        bytes.begin(), bytes.end(),
        [](char byte) { return byte == '\n' || byte == '\r' || byte == '\0'; }, ' ');
    return bytes;
}

} // namespace

VariableNames VariableNames::fromTexts(const QVector<QString>& texts)
{
    VariableNames names(static_cast<std::size_t>(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i)
        names.set(static_cast<std::size_t>(i), toBytes(texts[i]));
    return names;
}

VariableNames VariableNames::renamed(const QVector<QString>& texts) const
{
    VariableNames names = fromTexts(texts);
    for (std::size_t i = 0; i < std::min(m_count, names.m_count); ++i)
        if (text(i) == texts[static_cast<qsizetype>(i)])
            names.set(i, (*this)[i]);
    return names;
}

std::string VariableNames::operator[](std::size_t index) const
{
    const auto given = m_given.find(index);
    return given == m_given.end() ? std::to_string(index + 1) : given->second;
}

QString VariableNames::text(std::size_t index) const
{
    return namebytes::toText((*this)[index]);
}

QVector<QString> VariableNames::texts() const
{
    QVector<QString> texts;
    texts.reserve(static_cast<qsizetype>(m_count));
    for (std::size_t i = 0; i < m_count; ++i)
        texts.append(text(i));
    return texts;
}

void VariableNames::set(std::size_t index, const std::string& name)
{
    if (index >= m_count)
        return;
    if (name == std::to_string(index + 1))
        m_given.erase(index);
    else
        m_given.insert_or_assign(index, name);
}

VariableNames VariableNames::first(std::size_t count) const
{
    VariableNames names(count);
    names.m_given.insert(m_given.begin(), m_given.lower_bound(std::min(count, m_count)));
    return names;
}

void writeNameHeader(std::ostream& out, const VariableNames& names)
{
    for (std::size_t i = 0; i < names.size(); ++i)
        out << "vname\t" + std::to_string(i + 1) + '\t' + names[i] + '\n';
}
