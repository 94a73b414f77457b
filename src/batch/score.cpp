// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/arguments.h"
#include "batch/commands.h"
#include "batch/console.h"
#include "batch/gathering.h"
#include "batch/scorer.h"
#include "output/numbertext.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace batch {

namespace {

/// What the arguments ask for.
struct ScoreOptions
{
    QStringList files;
    QString analysis;
    QString page;
    QString output;
    unsigned precision = 9;
    std::uint64_t from = 0;
    std::uint64_t to = pelmora::RowStream::unlimited;
    std::uint64_t linesBefore = 0;
    bool linesAreCounted = false;
};

QString help()
{
    return tr(
        "Usage: pelmora-batch score FILE... -c ANALYSIS.json --page PAGE [-o SCORES]\n\n"
        "Writes the factor scores of the cases in FILE..., one line each, with the means and\n"
        "deviations of an analysis that \"analyse --json\" wrote; to standard output without "
        "-o.\n\n"
        "  -c ANALYSIS.json   the analysis of one file\n"
        "  --page PAGE        pelmora, varimax or initial\n"
        "  --precision 0..9   decimals; 9 unless told\n"
        "  --from, --to BYTE  only the lines that begin in this range of the only FILE's bytes\n"
        "  --lines-before N   data lines of FILE before the range, for messages\n");
}

ScoreOptions optionsOf(Arguments& arguments)
{
    ScoreOptions options;
    options.files = arguments.files;
    options.analysis = arguments.option("-c");
    options.page = arguments.option("--page");
    options.output = arguments.options.value(QStringLiteral("-o"), QStringLiteral("-"));
    takeNumber(arguments, "--from", options.from);
    takeNumber(arguments, "--to", options.to);
    takeNumber(arguments, "--lines-before", options.linesBefore);
    options.linesAreCounted = arguments.options.contains(QStringLiteral("--lines-before"));
    std::uint64_t precision = options.precision;
    takeNumber(arguments, "--precision", precision);
    options.precision = static_cast<unsigned>(std::min<std::uint64_t>(precision, 10));
    return options;
}

/// What is wrong with them; empty: nothing.
QString faultOf(const ScoreOptions& options)
{
    const QStringList pages = {QStringLiteral("pelmora"), QStringLiteral("varimax"),
                               QStringLiteral("initial")};
    const bool isRange = options.from > 0 || options.to != pelmora::RowStream::unlimited;
    if (options.files.isEmpty())
        return tr("a file is missing");
    if (options.files.count(QStringLiteral("-")) > 1)
        return tr("standard input can be read once only");
    if (isRange && options.files.size() > 1)
        return tr("a range is for one file");
    if (options.analysis.isEmpty())
        return tr("an analysis is missing: -c ANALYSIS.json");
    if (!pages.contains(options.page))
        return tr("%1 cannot be \"%2\"").arg(QStringLiteral("--page"), options.page);
    if (options.precision > 9)
        return tr("--precision must be from 0 to 9");
    for (const QString& file : options.files + QStringList(options.analysis))
        if (isSameFile(file, options.output))
            return tr("the output %1 is an input").arg(options.output);
    return {};
}

/// Thrown when the input was refused, after a message. No std::exception: that would be reported as
/// a failure of the output.
struct Refused
{
};

class Writer
{
public:
    Writer(const ScoreOptions& options, Scorer& scorer) : m_options(options), m_scorer(scorer) {}

    void writeAll(std::ostream& out)
    {
        for (const QString& file : m_options.files)
            writeFile(out, file);
    }

    bool allFinite() const { return m_allFinite; }

private:
    void writeFile(std::ostream& out, const QString& file)
    {
        const auto variables = static_cast<std::size_t>(m_scorer.variables());
        pelmora::RowStream stream(file);
        stream.setRange(m_options.from, m_options.to);
        if (m_options.linesAreCounted)
            stream.continueBehind(m_options.linesBefore, variables);
        bool fits = true;
        const auto takeRows = [&](const double* values, std::size_t rows, std::size_t columns) {
            fits = fits && columns == variables;
            if (fits)
                writeRows(out, m_scorer.scores(values, static_cast<int>(rows)),
                          static_cast<int>(rows));
            else if (m_misfit != file)
                tellMisfit(file, columns);
        };
        if (!readStream(stream, file, Scorer::casesPerBlock, takeRows) || !fits)
            throw Refused();
    }

    void tellMisfit(const QString& file, std::size_t columns)
    {
        m_misfit = file;
        tell(file, tr("There are %1 columns, but %2 variables in the analysis.")
                       .arg(columns)
                       .arg(m_scorer.variables()));
    }

    void writeRows(std::ostream& out, const pelmora::Matrix& scores, int rows)
    {
        std::string line;
        for (int i = 0; i < rows; ++i) {
            line.clear();
            for (int j = 0; j < scores.columns(); ++j) {
                m_allFinite = m_allFinite && std::isfinite(scores[i][j]);
                line += numbertext::fixedBytes(scores[i][j], m_options.precision);
                line += j + 1 < scores.columns() ? '\t' : '\n';
            }
            out << line;
        }
    }

    const ScoreOptions& m_options;
    Scorer& m_scorer;
    QString m_misfit;
    bool m_allFinite = true;
};

} // namespace

int score(const QStringList& given)
{
    Arguments arguments = takeApart(given, {QStringLiteral("-c"), QStringLiteral("--page"),
                                            QStringLiteral("--precision"), QStringLiteral("-o"),
                                            QStringLiteral("--from"), QStringLiteral("--to"),
                                            QStringLiteral("--lines-before")});
    if (arguments.help)
        return print(help());
    const ScoreOptions options = optionsOf(arguments);
    const QString fault = arguments.fault.isEmpty() ? faultOf(options) : arguments.fault;
    if (!fault.isEmpty())
        return refuseUsage(QStringLiteral("score"), fault);
    QString unfit;
    auto scorer = Scorer::fromFile(options.analysis, options.page, unfit);
    if (!scorer) {
        tell(options.analysis, unfit);
        return InputRefused;
    }
    Writer writer(options, *scorer);
    try {
        const auto write = [&writer](std::ostream& out) { writer.writeAll(out); };
        const int written = streamOutput(options.output, write);
        return written == Success && !writer.allFinite() ? NotFinite : written;
    } catch (const Refused&) {
        return InputRefused;
    }
}

} // namespace batch
