// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>

namespace pelmora {

/// Two columns of a matrix.
struct ColumnPair
{
    int j;
    int k;

    bool touches(const ColumnPair& other) const
    {
        return j == other.j || j == other.k || k == other.j || k == other.k;
    }
};

/// Up to four pairs that have no column in common.
class DisjointPairs
{
public:
    static constexpr int most = 4;

    int count() const { return m_count; }
    const ColumnPair& operator[](int i) const { return m_pairs[i]; }
    const ColumnPair* begin() const { return m_pairs; }
    const ColumnPair* end() const { return m_pairs + m_count; }

    /// False, and nothing added, if there is no room or another pair has one of the columns.
    bool add(const ColumnPair& pair)
    {
        if (m_count == most ||
            std::any_of(begin(), end(), [&](const auto& other) { return pair.touches(other); }))
            return false;
        m_pairs[m_count++] = pair;
        return true;
    }

private:
    int m_count = 0;
    ColumnPair m_pairs[most];
};

} // namespace pelmora
