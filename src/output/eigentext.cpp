// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/eigentext.h"

#include "output/numbertext.h"

#include <algorithm>
#include <ostream>
#include <string>

std::string quotedName(std::string name)
{
    std::replace(name.begin(), name.end(), '"', '\'');
    return '"' + name + '"';
}

void writeEigenvalues(std::ostream& out, const pelmora::Matrix& table, unsigned decimals)
{
    out << "Factor\tEigenvalue\tVariance\tCumulative\n";
    for (int j = 0; j < table.columns(); ++j) {
        out << j + 1;
        for (int row = 0; row < table.rows(); ++row)
            out << '\t' << numbertext::fixedBytes(table[row][j], decimals);
        out << '\n';
    }
}

void writeFactorMatrix(std::ostream& out, const pelmora::Matrix& values, const VariableNames& names,
                       unsigned decimals)
{
    out << "Variable";
    for (int j = 0; j < values.columns(); ++j)
        out << "\tF" << j + 1;
    out << '\n';
    for (int i = 0; i < values.rows(); ++i) {
        out << quotedName(names[static_cast<std::size_t>(i)]);
        for (int j = 0; j < values.columns(); ++j)
            out << '\t' << numbertext::fixedBytes(values[i][j], decimals);
        out << '\n';
    }
}
