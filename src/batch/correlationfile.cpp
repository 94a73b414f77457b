// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/correlationfile.h"

#include "batch/console.h"
#include "batch/correlationcomments.h"
#include "batch/gathering.h"
#include "input/variablenames.h"
#include "output/numbertext.h"

#include <cmath>
#include <ostream>

namespace batch {

namespace {

VariableNames namesOf(const Sums& sums)
{
    VariableNames names(sums.moments.shift.size());
    for (const auto& [index, name] : sums.names)
        names.set(index, name);
    return names;
}

/// What keeps a variable from being correlated; empty: nothing.
QString faultOf(const pelmora::Moments& moments, int variable)
{
    const double squares = moments.productRow(variable)[0];
    if (squares == 0.0)
        return tr("Variable %1 (%2) is constant: it has no correlations.");
    if (!std::isfinite(squares) || !std::isfinite(moments.mean(variable)))
        return tr("Variable %1 (%2) is too large to be correlated.");
    return {};
}

/// Tells of all variables without correlations; false where there is one.
bool canBeCorrelated(const pelmora::Moments& moments, const VariableNames& names,
                     const QString& table)
{
    bool can = true;
    for (int k = 0; k < moments.variables(); ++k) {
        const QString fault = faultOf(moments, k);
        if (!fault.isEmpty())
            tell(table, fault.arg(QString::number(k + 1), names.text(static_cast<std::size_t>(k))));
        can = can && fault.isEmpty();
    }
    return can;
}

CorrelationComments commentsOf(const pelmora::Moments& moments)
{
    CorrelationComments comments;
    comments.cases = moments.cases;
    for (int k = 0; k < moments.variables(); ++k) {
        comments.means.push_back(moments.mean(k));
        comments.standardDeviations.push_back(moments.standardDeviation(k));
    }
    return comments;
}

void writeSquare(std::ostream& out, const pelmora::Moments& moments)
{
    std::string line;
    for (int j = 0; j < moments.variables(); ++j) {
        line.clear();
        for (int k = 0; k < moments.variables(); ++k) {
            if (k > 0)
                line += ' ';
            line += numbertext::shortest(moments.correlation(j, k));
        }
        out << line << '\n';
    }
}

} // namespace

int writeExactCorrelations(const Sums& sums, const QString& table, const QString& path)
{
    const pelmora::Moments& moments = sums.moments;
    if (moments.variables() == 0) {
        tellEmptyTable(table);
        return InputRefused;
    }
    if (moments.cases < 2) {
        tell(table, tr("Correlations need at least 2 cases, but there is %1.").arg(moments.cases));
        return InputRefused;
    }
    const VariableNames names = namesOf(sums);
    if (!canBeCorrelated(moments, names, table))
        return InputRefused;
    return streamOutput(path, [&](std::ostream& out) {
        writeSquare(out, moments);
        writeNameHeader(out, names);
        writeCorrelationComments(out, commentsOf(moments));
    });
}

} // namespace batch
