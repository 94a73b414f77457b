// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/report.h"

#include "batch/analysis.h"
#include "batch/console.h"
#include "batch/diagrams.h"
#include "batch/filemessages.h"
#include "batch/outputnames.h"
#include "batch/reportdocument.h"
#include "minimalpairs/minimalpairfinder.h"
#include "output/adequacytext.h"
#include "output/loadingsums.h"
#include "output/numbertext.h"
#include "output/tabletext.h"

#include <QFileInfo>

#include <algorithm>

namespace batch {

namespace {

QString inputLine(const Analysis& analysis)
{
    const QString kind =
        analysis.ofCorrelations ? tr("Correlations of %1 variables") : tr("Data of %1 variables");
    const QString orientation = analysis.rowWise ? tr(", one per line") : QString();
    const QString cases =
        analysis.cases > 0 ? tr(", %1 cases").arg(analysis.cases) : tr(", number of cases unknown");
    return kind.arg(analysis.variables()) + orientation + cases + u'.';
}

QString choice(const AnalyseOptions& options)
{
    switch (options.rule) {
    case FactorRule::Given:
        return tr("as asked for");
    case FactorRule::Parallel:
        return tr("by parallel analysis");
    default:
        return tr("by eigenvalues of at least 1");
    }
}

QString pageTitle(FactorKind kind)
{
    switch (kind) {
    case FactorKind::Pelmora:
        return tr("Pelmora rotation");
    case FactorKind::Varimax:
        return tr("Varimax rotation");
    default:
        return tr("Initial factors");
    }
}

TableGrid::Column numberColumn(const QString& heading)
{
    return {heading, true};
}

} // namespace

Report::Report(const AnalyseOptions& options)
    : m_options(options)
    , m_decimals(options.shownPrecision())
    , m_title(tr("Factor analysis"))
{
    if (options.report.endsWith(u".md"))
        m_document = std::make_unique<MarkdownReport>();
    else
        m_document = std::make_unique<HtmlReport>(m_title);
    m_document->heading(1, m_title);
}

Report::~Report() = default;

void Report::add(const Analysis& analysis, const FileMessages& messages, bool refused)
{
    m_document->heading(2, QFileInfo(analysis.file).fileName());
    if (!refused)
        m_document->paragraph(inputLine(analysis));
    for (const ReaderMessage& message : messages.all())
        m_document->paragraph(message.text);
    if (!refused) {
        const auto& measures = analysis.adequacy->measures;
        m_document->heading(3, tr("Adequacy"));
        m_document->list({adequacytext::kmo(measures.kmo, m_decimals),
                          adequacytext::bartlett(analysis.adequacy->bartlett, m_decimals),
                          adequacytext::determinant(measures.lnDeterminant, m_decimals),
                          adequacytext::eigenvalueRatio(measures.eigenvalueRatio, m_decimals)});
        addNumberOfFactors(analysis);
        addEigenvalues(analysis);
        for (const AnalysedPage& page : analysis.pages)
            addPage(page);
    }
    ++m_inputs;
}

void Report::addNumberOfFactors(const Analysis& analysis)
{
    const pelmora::AdequacyResults& results = *analysis.adequacy;
    m_document->heading(3, tr("Number of factors"));
    m_document->paragraph(
        tr("Factors taken: %1, %2.").arg(QString::number(analysis.factors), choice(m_options)));
    m_document->list({adequacytext::eigenvaluesOfAtLeastOne(results.eigenvaluesOfAtLeastOne),
                      adequacytext::parallelAnalysis(results.toComparison,
                                                     results.random ? &*results.random : nullptr,
                                                     analysis.decomposition.eigenvalues),
                      adequacytext::empiricalKaiser(results.kaiser),
                      adequacytext::minimumAveragePartial(results.partial)});
}

void Report::addEigenvalues(const Analysis& analysis)
{
    const pelmora::Matrix table = pelmora::varianceTable(analysis.decomposition.eigenvalues);

    TableGrid grid;
    grid.corner = tr("Factor");
    grid.columns = {numberColumn(tr("Eigenvalue")), numberColumn(tr("Variance [%]")),
                    numberColumn(tr("Cumulative [%]"))};
    for (int j = 0; j < table.columns(); ++j)
        grid.rowHeadings.append(QString::number(j + 1));
    grid.cell = [&](int row, int column) {
        return numbertext::fixed(table[column][row], m_decimals);
    };
    m_document->heading(3, tr("Eigenvalues"));
    m_document->table(grid);
}

void Report::addPage(const AnalysedPage& page)
{
    const QString title = pageTitle(page.kind);
    m_document->heading(3, title);
    m_document->picture(diagramFile(page, DrawingKind::Png, title),
                        reportPicture(m_options.report, m_inputs, page.kind), title);
    addLoadings(page);
    addPairs(page);
}

void Report::addLoadings(const AnalysedPage& page)
{
    const pelmora::Matrix& loadings = page.loadings.values;
    const int variables = loadings.rows();
    const int factors = loadings.columns();
    const LoadingSums sums = loadingSums(loadings, factors);

    TableGrid grid;
    grid.corner = tr("Variable");
    for (int j = 0; j < factors; ++j)
        grid.columns.push_back(numberColumn(tr("F%1").arg(j + 1)));
    grid.columns.push_back(numberColumn(tr("Communality")));
    for (const QString& name : page.loadings.names.texts())
        grid.rowHeadings.append(onOneLine(name));
    grid.rowHeadings.append(tr("Explained variance [%]"));
    grid.cell = [&](int row, int column) {
        const auto i = static_cast<std::size_t>(row);
        const auto j = static_cast<std::size_t>(column);
        double value = 0.0;
        if (row < variables)
            value = column < factors ? loadings[row][column] : sums.communalities[i];
        else
            value = column < factors ? sums.explainedVariance[j] : sums.totalVariance;
        return numbertext::fixed(value, m_decimals);
    };
    m_document->table(grid);
}

void Report::addPairs(const AnalysedPage& page)
{
    const MinimalPairFinder finder(page.loadings);
    const int ranks = finder.pairCount();
    if (ranks == 0)
        return;
    TableGrid grid;
    grid.corner = tr("Focal factor");
    grid.columns = {
        {tr("Variable"), false}, {tr("Variable"), false}, numberColumn(tr("Difference"))};
    for (int row = 0; row < page.loadings.values.columns() * ranks; ++row)
        grid.rowHeadings.append(tr("F%1").arg(row / ranks + 1));
    grid.cell = [&](int row, int column) {
        const MinimalPair pair = finder.pair(row / ranks, row % ranks);
        return column < 2 ? onOneLine(pair.variables[static_cast<std::size_t>(column)].name)
                          : numbertext::fixed(pair.difference, m_decimals);
    };
    m_document->heading(4, tr("Minimal pairs"));
    m_document->table(grid);
}

QString Report::method() const
{
    const auto has = [this](FactorKind kind) {
        return std::count(m_options.rotations.begin(), m_options.rotations.end(), kind) > 0;
    };
    QStringList rotations;
    if (has(FactorKind::Pelmora))
        rotations += tr("by the Pelmora rotation, which minimises the criterion that Varimax "
                        "maximises");
    if (has(FactorKind::Varimax))
        rotations += tr("by Varimax (Kaiser 1958) without row normalisation");
    QString text = tr("Factors are principal components of the correlations (Hotelling 1933), "
                      "decomposed by Jacobi's method (Jacobi 1846)");
    if (!rotations.isEmpty())
        text += tr(", and rotated orthogonally %1").arg(rotations.join(tr(", and ")));
    return text + tr(". Computed by Pelmora %1.").arg(version());
}

bool Report::write()
{
    m_document->heading(2, tr("Method"));
    m_document->paragraph(method());
    const QString text = m_document->text();
    const bool isPaper = m_options.report.endsWith(u".pdf");
    bool written = writeOutput(m_options.report, isPaper ? paperOf(text, m_title) : text.toUtf8());
    if (const auto* markdown = dynamic_cast<const MarkdownReport*>(m_document.get()))
        for (const auto& [file, png] : markdown->pictures())
            written = writeOutput(file, png) && written;
    return written;
}

} // namespace batch
