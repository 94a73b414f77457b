// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/analysis.h"

#include "batch/analyseoptions.h"
#include "batch/console.h"
#include "batch/correlationcomments.h"
#include "batch/filemessages.h"
#include "input/correlationdata.h"
#include "input/loading.h"
#include "numerics/standardisation.h"
#include "output/adequacytext.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace batch {

namespace {

/// Empty where the file cannot be read.
QByteArray sha256Of(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const bool hashed =
        QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && hash.addData(&file);
    return hashed ? hash.result().toHex() : QByteArray();
}

bool allFinite(std::span<const double> values)
{
    return std::all_of(values.begin(), values.end(), [](double x) { return std::isfinite(x); });
}

bool allFinite(const pelmora::Matrix& matrix)
{
    for (int i = 0; i < matrix.rows(); ++i)
        if (!allFinite({matrix[i], static_cast<std::size_t>(matrix.columns())}))
            return false;
    return true;
}

/// The steps of one analysis; each returns whether to go on.
class Analyser
{
public:
    Analyser(const AnalyseOptions& options, FileMessages& messages, Analysis& analysis)
        : m_options(options)
        , m_messages(messages)
        , m_analysis(analysis)
    {
    }

    bool run()
    {
        if (!(m_options.correlations ? takeCorrelations() : takeData()))
            return refusedToOpen();
        m_analysis.decomposition = pelmora::decompose(m_analysis.correlations);
        return !m_analysis.decomposition.isNull() && chooseFactors() && makePages();
    }

private:
    bool takeData()
    {
        AsciiData data;
        if (!loadDataMatrix(m_analysis.file, data))
            return false;
        m_analysis.cases = static_cast<int>(m_options.rowWise ? data.cols() : data.rows());
        auto computed = pelmora::formCorrelations(data.matrix(), m_options.rowWise);
        if (computed.isNull())
            return false;
        const pelmora::Standardisation& used = computed.used;
        m_analysis.means.assign(used.means.begin(), used.means.end());
        m_analysis.standardDeviations.assign(used.deviations.begin(), used.deviations.end());
        m_analysis.correlations = std::move(computed.matrix);
        if (m_options.writes(ScoreFiles)) {
            m_data = std::move(data.matrix());
            m_standardisation = std::move(computed.used);
        }
        takeNames(data);
        return true;
    }

    bool takeCorrelations()
    {
        CorrelationData correlations;
        QStringList otherLines;
        if (!loadCorrelationMatrix(m_analysis.file, correlations, &otherLines))
            return false;
        m_analysis.correlations = std::move(correlations.matrix());
        auto comments = readCorrelationComments(otherLines, m_analysis.variables());
        m_analysis.means = std::move(comments.means);
        m_analysis.standardDeviations = std::move(comments.standardDeviations);
        m_analysis.cases = m_options.cases;
        constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max();
        if (m_options.cases == 0 && comments.cases)
            m_analysis.cases = static_cast<std::int64_t>(std::min(*comments.cases, most));
        takeNames(correlations);
        return true;
    }

    void takeNames(const AsciiData& data)
    {
        m_analysis.names = data.names().first(static_cast<std::size_t>(m_analysis.variables()));
    }

    bool refusedToOpen()
    {
        // The one fault that readers do not report.
        if (m_messages.all().isEmpty())
            m_messages.warn(tr("Error opening file"),
                            tr("Cannot open file %1").arg(m_analysis.file));
        return false;
    }

    bool chooseFactors()
    {
        const pelmora::Decomposition& found = m_analysis.decomposition;
        if (m_options.wantsAdequacy() || m_options.rule == FactorRule::Parallel)
            m_analysis.adequacy =
                pelmora::adequacyResults(m_analysis.correlations, found, casesForAdequacy());
        switch (m_options.rule) {
        case FactorRule::Given:
            m_analysis.factors = m_options.factors;
            break;
        case FactorRule::Eigenvalues:
            m_analysis.factors = pelmora::proposedFactors(found.eigenvalues);
            break;
        case FactorRule::Parallel:
            if (const pelmora::Obstacle& obstacle = m_analysis.adequacy->toComparison)
                return refuse(adequacytext::parallelAnalysis(obstacle, nullptr, found.eigenvalues));
            if (!m_analysis.adequacy->random)
                return false; // memory did not suffice
            m_analysis.factors = std::max(m_analysis.adequacy->byQuantile, 1);
        }
        return m_analysis.factors <= m_analysis.variables() ||
               refuse(tr("%1 factors asked for, but there are %2 variables")
                          .arg(m_analysis.factors)
                          .arg(m_analysis.variables()));
    }

    /// Capped: beyond two thousand million cases no measure changes noticeably.
    int casesForAdequacy() const
    {
        constexpr int most = std::numeric_limits<int>::max();
        return static_cast<int>(std::min<std::int64_t>(m_analysis.cases, most));
    }

    bool refuse(const QString& text)
    {
        m_messages.warn(tr("Error"), text);
        return false;
    }

    bool makePages()
    {
        for (const FactorKind kind : m_options.rotations) {
            auto factors = pelmora::extractFactors(m_analysis.decomposition, m_analysis.factors,
                                                   static_cast<int>(kind), rawScores());
            const bool scoresMissing = factors.scores.isNull() && !m_data.isNull();
            if (factors.isNull() || scoresMissing)
                return false;
            m_analysis.pages.push_back({kind,
                                        {std::move(factors.loadings), m_analysis.names},
                                        std::move(factors.coefficients),
                                        std::move(factors.scores)});
        }
        return true;
    }

    pelmora::RawScores rawScores() const
    {
        if (m_data.isNull())
            return {};
        return {.data = &m_data, .used = &m_standardisation, .rowWise = m_options.rowWise};
    }

    const AnalyseOptions& m_options;
    FileMessages& m_messages;
    Analysis& m_analysis;
    pelmora::Matrix m_data; ///< only where scores are asked for
    pelmora::Standardisation m_standardisation;
};

} // namespace

bool Analysis::isFinite(bool withCoefficients) const
{
    if (!allFinite(correlations) || !allFinite(decomposition.eigenvalues) ||
        !allFinite(decomposition.initialLoadings))
        return false;
    return std::all_of(pages.begin(), pages.end(), [&](const AnalysedPage& page) {
        return allFinite(page.loadings.values) && allFinite(page.scores) &&
               (!withCoefficients || allFinite(page.coefficients));
    });
}

bool analyseFile(const QString& file, const AnalyseOptions& options, FileMessages& messages,
                 Analysis& analysis)
{
    analysis.file = file;
    analysis.ofCorrelations = options.correlations;
    analysis.rowWise = options.rowWise;
    if (!options.json.isEmpty())
        analysis.sha256 = sha256Of(file);
    return Analyser(options, messages, analysis).run();
}

} // namespace batch
