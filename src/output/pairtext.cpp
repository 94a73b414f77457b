// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/pairtext.h"

#include "output/eigentext.h"
#include "output/numbertext.h"

#include <ostream>

namespace {

void writeVariable(std::ostream& out, const RankedPair::Variable& variable, unsigned decimals)
{
    out << '\t' << variable.number << '\t' << quotedName(variable.name) << '\t'
        << numbertext::fixedBytes(variable.loading, decimals);
}

} // namespace

void writeMinimalPairs(std::ostream& out, const std::vector<RankedPair>& pairs, unsigned decimals)
{
    out << "Factor\tRank\tNumber1\tVariable1\tLoading1\tNumber2\tVariable2\tLoading2\t"
           "OtherDifference\tDifference\n";
    for (const RankedPair& pair : pairs) {
        out << pair.factor << '\t' << pair.rank;
        writeVariable(out, pair.first, decimals);
        writeVariable(out, pair.second, decimals);
        out << '\t' << numbertext::fixedBytes(pair.otherDifference, decimals) << '\t'
            << numbertext::fixedBytes(pair.difference, decimals) << '\n';
    }
}
