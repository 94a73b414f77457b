// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/rawdatatext.h"

#include "output/numbertext.h"

#include <ostream>
#include <string>

namespace {

template <typename Value>
void writeValues(std::ostream& out, int rows, int columns, Value value)
{
    std::string line;
    for (int row = 0; row < rows; ++row) {
        line.clear();
        for (int column = 0; column < columns; ++column) {
            if (column > 0)
                line += '\t';
            line += numbertext::shortest(value(row, column));
        }
        line += '\n';
        out << line;
    }
}

} // namespace

void writeRawData(std::ostream& out, const pelmora::Matrix& values, const VariableNames& names)
{
    writeValues(out, values.rows(), values.columns(),
                [&values](int row, int column) { return values[row][column]; });
    writeNameHeader(out, names);
}

void writeTransposed(std::ostream& out, const pelmora::Matrix& values, const VariableNames& names)
{
    writeValues(out, values.columns(), values.rows(),
                [&values](int row, int column) { return values[column][row]; });
    writeNameHeader(out, names);
}
