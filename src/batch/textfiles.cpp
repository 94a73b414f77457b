// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/textfiles.h"

#include "batch/analyseoptions.h"
#include "batch/analysis.h"
#include "batch/console.h"
#include "batch/outputnames.h"
#include "minimalpairs/minimalpairfinder.h"
#include "output/adequacyfile.h"
#include "output/correlationtext.h"
#include "output/eigentext.h"
#include "output/factortext.h"
#include "output/pairtext.h"

namespace batch {

namespace {

RankedPair::Variable variableOf(const MinimalPair::Variable& variable, const VariableNames& names,
                                int factor)
{
    return {variable.index + 1, names[static_cast<std::size_t>(variable.index)],
            variable.loadings[static_cast<std::size_t>(factor)]};
}

std::vector<RankedPair> rankedPairs(const NamedMatrix& loadings)
{
    const MinimalPairFinder finder(loadings);
    const int factors = loadings.values.columns();
    std::vector<RankedPair> pairs;
    for (int factor = 0; factor < factors; ++factor) {
        for (int rank = 0; rank < finder.pairCount(); ++rank) {
            const MinimalPair pair = finder.pair(factor, rank);
            const auto& [first, second] = pair.variables;
            const double others = averageNonFocalDifference(
                first.loadings.data(), second.loadings.data(), factors, factor);
            pairs.push_back({factor + 1, rank + 1, variableOf(first, loadings.names, factor),
                             variableOf(second, loadings.names, factor), others, pair.difference});
        }
    }
    return pairs;
}

/// Counts what could not be written.
class TextFiles
{
public:
    TextFiles(const Analysis& analysis, const AnalyseOptions& options)
        : m_analysis(analysis)
        , m_options(options)
        , m_names(options, analysis.file)
        , m_factors(QString::number(analysis.factors))
        , m_decimals(options.filePrecision())
    {
    }

    int write()
    {
        const pelmora::Decomposition& found = m_analysis.decomposition;
        const VariableNames& names = m_analysis.names;
        add(CorrelationFile, m_names.file("cor"), [&](std::ostream& out) {
            writeCorrelations(out, m_analysis.correlations, names, m_decimals);
        });
        add(EigenvalueFile, m_names.file("eig"), [&](std::ostream& out) {
            writeEigenvalues(out, pelmora::varianceTable(found.eigenvalues), m_decimals);
        });
        add(EigenvectorFile, m_names.file("vec"), [&](std::ostream& out) {
            writeFactorMatrix(out, found.eigenvectors, names, m_decimals);
        });
        add(InitialLoadingFile, m_names.file("ini"), [&](std::ostream& out) {
            writeFactorMatrix(out, found.initialLoadings, names, m_decimals);
        });
        add(AdequacyFile, m_names.file("adequacy"), [&](std::ostream& out) {
            writeAdequacy(out, *m_analysis.adequacy, names, m_decimals);
        });
        for (const AnalysedPage& page : m_analysis.pages)
            writePage(page);
        return m_failures;
    }

private:
    void writePage(const AnalysedPage& page)
    {
        add(LoadingFiles, m_names.pageFile(m_factors, loadingsExtension(page.kind)),
            [&](std::ostream& out) {
                writeLoadings(out, page.loadings.values, page.loadings.names, m_decimals);
            });
        add(ScoreFiles, m_names.pageFile(m_factors, scoresExtension(page.kind)),
            [&](std::ostream& out) { writeScores(out, page.scores, m_decimals); });
        add(PairFiles, m_names.pageFile(m_factors, page.kind, QStringLiteral("pairs")),
            [&](std::ostream& out) {
                writeMinimalPairs(out, rankedPairs(page.loadings), m_decimals);
            });
    }

    template <typename Write>
    void add(Output output, const QString& path, Write write)
    {
        if (m_options.writes(output) && !writeOutput(path, write))
            ++m_failures;
    }

    const Analysis& m_analysis;
    const AnalyseOptions& m_options;
    const OutputNames m_names;
    const QString m_factors;
    const unsigned m_decimals;
    int m_failures = 0;
};

} // namespace

int writeTextFiles(const Analysis& analysis, const AnalyseOptions& options)
{
    return TextFiles(analysis, options).write();
}

} // namespace batch
