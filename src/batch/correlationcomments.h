// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <vector>

namespace batch {

/// What a correlation file may say of the data behind it, in lines that the readers set aside:
/// "# cases N", and for every variable "# moments K MEAN SD", K counting from 1.
struct CorrelationComments
{
    std::optional<std::uint64_t> cases;
    /// One per variable, or none at all.
    std::vector<double> means;
    std::vector<double> standardDeviations; ///< divisor n
};

void writeCorrelationComments(std::ostream& out, const CorrelationComments& comments);

/// Takes the comments of a matrix of so many variables from the lines that its reader set aside.
/// Means and deviations are taken only if all variables have them.
CorrelationComments readCorrelationComments(const QStringList& otherLines, int variables);

} // namespace batch
