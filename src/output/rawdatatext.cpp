// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/rawdatatext.h"

#include "output/numbertext.h"

#include <ostream>
#include <string>

void writeRawData(std::ostream& out, const pelmora::Matrix& values, const VariableNames& names)
{
    std::string line;
    for (int row = 0; row < values.rows(); ++row) {
        line.clear();
        for (int column = 0; column < values.columns(); ++column) {
            if (column > 0)
                line += '\t';
            line += numbertext::shortest(values[row][column]);
        }
        line += '\n';
        out << line;
    }
    writeNameHeader(out, names);
}
