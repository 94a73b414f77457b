// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/correlationcomments.h"

#include "output/numbertext.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

namespace batch {

namespace {

/// The words after the "#" of a line; none where it begins otherwise.
QStringList words(const QString& line)
{
    const QStringList all = line.split(u' ', Qt::SkipEmptyParts);
    return all.value(0) == u"#" ? all.sliced(1) : QStringList();
}

std::optional<double> number(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<std::uint64_t> count(const QString& text)
{
    bool ok = false;
    const std::uint64_t value = text.toULongLong(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

void takeMoments(const QStringList& line, CorrelationComments& comments)
{
    const auto variable = count(line[1]);
    const auto mean = number(line[2]);
    const auto deviation = number(line[3]);
    if (!variable || *variable < 1 || *variable > comments.means.size() || !mean || !deviation)
        return;
    comments.means[*variable - 1] = *mean;
    comments.standardDeviations[*variable - 1] = *deviation;
}

} // namespace

void writeCorrelationComments(std::ostream& out, const CorrelationComments& comments)
{
    if (comments.cases)
        out << "# cases " << std::to_string(*comments.cases) << '\n';
    for (std::size_t k = 0; k < comments.means.size(); ++k)
        out << "# moments " << std::to_string(k + 1) << ' '
            << numbertext::shortest(comments.means[k]) << ' '
            << numbertext::shortest(comments.standardDeviations[k]) << '\n';
}

CorrelationComments readCorrelationComments(const QStringList& otherLines, int variables)
{
    constexpr double missing = std::numeric_limits<double>::quiet_NaN();
    CorrelationComments comments;
    comments.means.assign(static_cast<std::size_t>(variables), missing);
    comments.standardDeviations = comments.means;
    for (const QString& line : otherLines) {
        const QStringList words = batch::words(line);
        if (words.size() == 2 && words[0] == u"cases")
            comments.cases = count(words[1]);
        else if (words.size() == 4 && words[0] == u"moments")
            takeMoments(words, comments);
    }
    const auto isMissing = [](double value) { return std::isnan(value); };
    if (std::any_of(comments.means.begin(), comments.means.end(), isMissing)) {
        comments.means.clear();
        comments.standardDeviations.clear();
    }
    return comments;
}

} // namespace batch
