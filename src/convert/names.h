// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cstddef>
#include <string>
#include <vector>

namespace convert {

/// Names as the program's files can hold them.
class VariableNameList
{
public:
    /// Cleans @p name, of column @p place (from 1), and adds it.
    void add(const QString& name, std::size_t place);
    /// Numbers repeated names. To be called once, when all are added.
    void finish();

    std::size_t size() const { return m_names.size(); }
    /// The bytes: Latin-1, and Windows-1252's letters in 80 to 9F.
    const std::string& bytes(std::size_t index) const { return m_names[index].bytes; }
    QString text(std::size_t index) const;

    /// A name that is not the file's.
    struct Change
    {
        std::size_t place;
        QString from;
        QString to;
    };
    std::vector<Change> changes() const;

private:
    struct Name
    {
        QString original;
        std::string bytes;
        std::size_t place;
    };
    std::vector<Name> m_names;
};

/// The bytes of one name: line ends and tabs are blanks, letters that the bytes cannot hold the
/// nearest ones, "vname" is broken up. May be empty.
std::string cleanedName(const QString& name);

} // namespace convert
