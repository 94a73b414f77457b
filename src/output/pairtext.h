// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// One line of a file of minimal pairs. Numbers of factors, ranks and variables count from 1.
struct RankedPair
{
    struct Variable
    {
        int number = 0;
        std::string name;
        double loading = 0.0; ///< on the focal factor
    };

    int factor = 0;
    int rank = 0;
    Variable first;
    Variable second;
    double otherDifference = 0.0; ///< the average |difference| on the other factors
    double difference = 0.0;      ///< what pairs are ranked by
};

/// Writes one line per pair under one line of titles, like writeFactorMatrix().
void writeMinimalPairs(std::ostream& out, const std::vector<RankedPair>& pairs, unsigned decimals);
