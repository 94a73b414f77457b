// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>

/// The names of a matrix's variables as bytes (input/namebytes.h says how they read). A variable
/// without a given name is called by its 1-based number; such names are not stored, since a long
/// file may have very many of them.
class VariableNames
{
public:
    VariableNames() = default;
    explicit VariableNames(std::size_t count) : m_count(count) {}

    /// A character that has no byte becomes "?", since that is what a file could hold of it.
    static VariableNames fromTexts(const QVector<QString>& texts);
    /// Names of these @p texts. One that reads as it did keeps its bytes, for not every byte has a
    /// letter of its own.
    VariableNames renamed(const QVector<QString>& texts) const;

    std::size_t size() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }

    /// Name of variable @p index (0-based, below size()).
    std::string operator[](std::size_t index) const;
    QString text(std::size_t index) const;
    QVector<QString> texts() const;

    /// Names variable @p index; an index beyond the names is ignored.
    void set(std::size_t index, const std::string& name);

    /// The first @p count names; default names follow where there are fewer.
    VariableNames first(std::size_t count) const;

private:
    std::size_t m_count = 0;
    std::map<std::size_t, std::string> m_given;
};

/// Writes the name header of every text file that the program makes: one line "vname", tab, 1-based
/// number, tab, name per name.
void writeNameHeader(std::ostream& out, const VariableNames& names);
