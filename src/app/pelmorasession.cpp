// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/pelmorasession.h"

#include "app/pcaform.h"
#include "app/sessiontabwidget.h"
#include "input/loading.h"
#include "input/namedmatrix.h"
#include "minimalpairs/minimalpairfinder.h"
#include "minimalpairs/minimalpairform.h"
#include "output/factorkind.h"
#include "settings/settings.h"
#include "views/corrform.h"
#include "views/dataform.h"
#include "views/factorform.h"
#include "views/longwork.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <optional>
#include <stdexcept>

struct PelmoraSession::RotationPage
{
    unsigned bit;
    FactorKind kind;
    const char* tabTitle;
};

namespace {

/// Whether the first columns of @p loadings are @p factors, value for value.
bool startWith(const pelmora::Matrix& loadings, const pelmora::Matrix& factors)
{
    for (int i = 0; i < factors.rows(); ++i)
        if (!std::equal(factors[i], factors[i] + factors.columns(), loadings[i]))
            return false;
    return true;
}

} // namespace

PelmoraSession::PelmoraSession(QObject* parent) : SessionFace(parent) {}

// Touches no page: at the program's end they are gone before the session.
PelmoraSession::~PelmoraSession()
{
    const QString input = PelmoraSession::inputFile();
    if (!m_opensFolder || input.isEmpty() || !settings::openFolderAfterClosing())
        return;
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(input).absolutePath()));
}

void PelmoraSession::attachTabWidget(SessionTabWidget* pages)
{
    m_pages = pages;
    pages->setTabsClosable(true);
    connect(pages, &QTabWidget::tabCloseRequested, this, &PelmoraSession::slotCloseTab);
}

bool PelmoraSession::loadDataMatrix(const QString& path)
{
    m_dataFile = path;
    return ::loadDataMatrix(path, m_data);
}

bool PelmoraSession::loadCorrelationMatrix(const QString& path)
{
    m_correlationFile = path;
    return ::loadCorrelationMatrix(path, m_correlations);
}

const AsciiData& PelmoraSession::currentMatrix() const
{
    if (m_data.rows() > 0)
        return m_data;
    if (m_correlations.rows() > 0)
        return m_correlations;
    throw std::logic_error("Internal Error!");
}

unsigned PelmoraSession::rowCount() const
{
    return currentMatrix().rows();
}

unsigned PelmoraSession::columnCount() const
{
    return currentMatrix().cols();
}

QString PelmoraSession::inputFile() const
{
    return m_dataFile.isEmpty() ? m_correlationFile : m_dataFile;
}

QString PelmoraSession::outputStem() const
{
    const QFileInfo file(inputFile());
    return file.absolutePath() + u'/' + file.completeBaseName();
}

bool PelmoraSession::createDataPage()
{
    if (!m_pages)
        return false;
    m_dataPage = new DataForm(this, m_pages);
    m_dataPage->fill(m_data);
    m_pages->addPage(m_dataPage, tr("Raw data"), false);
    return true;
}

bool PelmoraSession::createCorrelationPageFromData()
{
    auto computed = pelmora::formCorrelations(m_data.matrix(), m_rowWise);
    if (computed.isNull())
        return false;
    takeCorrelations(std::move(computed));
    return createCorrelationPage();
}

void PelmoraSession::takeCorrelations(pelmora::Correlations computed)
{
    m_correlations.setMatrix(std::move(computed.matrix));
    m_correlations.setNames(m_data.names().first(m_correlations.rows()));
    m_standardisation = std::move(computed.used);
}

bool PelmoraSession::createCorrelationPage()
{
    const int place = removePage(m_correlationPage);
    if (!m_pages)
        return false;
    m_correlationPage = new CorrForm(this, m_pages);
    m_correlationPage->fill(m_correlations);
    m_pages->addPage(m_correlationPage, tr("Correlations"), false, place);
    return true;
}

void PelmoraSession::createPcaPage()
{
    showDecomposition(pelmora::decompose(m_correlations.matrix()));
}

void PelmoraSession::showDecomposition(pelmora::Decomposition decomposition)
{
    const int place = removePage(m_pcaPage);
    m_decomposition = std::move(decomposition);
    if (!m_pages || m_decomposition.isNull())
        return;
    qDebug("Used %d jacobi rotations.... ", m_decomposition.rotations);

    m_pcaPage = new PCAForm(this, m_pages);
    m_pcaPage->fill(m_decomposition);
    m_pages->addPage(m_pcaPage, tr("PCA"), false, place);
    m_pages->setCurrentWidget(m_pcaPage);
}

int PelmoraSession::removePage(QWidget* page)
{
    const int place = page && m_pages ? m_pages->indexOf(page) : -1;
    if (place >= 0)
        m_pages->removeTab(place);
    delete page;
    return place;
}

void PelmoraSession::createRotationPages(int numberOfFactors, unsigned kinds)
{
    static constexpr RotationPage pages[] = {
        {.bit = PelmoraBit, .kind = FactorKind::Pelmora, .tabTitle = QT_TR_NOOP("Pelmora[%1]")},
        {.bit = VarimaxBit, .kind = FactorKind::Varimax, .tabTitle = QT_TR_NOOP("Varimax[%1]")},
        {.bit = UnrotatedBit, .kind = FactorKind::Initial, .tabTitle = QT_TR_NOOP("Initial[%1]")}};
    QStringList added;
    for (const RotationPage& page : pages) {
        if ((kinds & page.bit) && !LongWork::isCancelled())
            createRotationPage(numberOfFactors, page, &added);
    }
    if (!added.isEmpty())
        emit pagesAdded(added);
}

void PelmoraSession::createRotationPage(int numberOfFactors, const RotationPage& page,
                                        QStringList* added)
{
    auto factors = pelmora::extractFactors(m_decomposition, numberOfFactors,
                                           static_cast<int>(page.kind), rawScores());
    if (!m_pages || factors.isNull())
        return;
    const NamedMatrix loadings{std::move(factors.loadings), m_correlations.names()};
    std::optional<MinimalPairFinder> finder;
    if (loadings.values.rows() > 1)
        finder.emplace(loadings);
    if (LongWork::isCancelled())
        return;

    auto* form = new FactorForm(m_pages, numberOfFactors, this);
    form->setKind(page.kind);
    form->setUnmoved(page.kind != FactorKind::Initial &&
                     startWith(m_decomposition.initialLoadings, loadings.values));
    form->setUp(loadings, !finder, std::move(factors.scores));
    if (finder)
        addMinimalPairs(form, *finder);
    const QString title = tr(page.tabTitle).arg(numberOfFactors);
    m_pages->addPage(form, title, true);
    added->append(title);
}

void PelmoraSession::addMinimalPairs(FactorForm* page, const MinimalPairFinder& finder)
{
    for (int factor = 0; factor < finder.factorCount(); ++factor) {
        auto* pairs = new MinimalPairForm(finder, factor, page);
        connect(this, &SessionFace::variableNamesChanged, pairs,
                &MinimalPairForm::on_variableNamesChanged);
        page->addFocalFactorTab(pairs, factor + 1);
    }
}

void PelmoraSession::slotCloseTab(int iIndex)
{
    if (m_pages)
        m_pages->removeTab(iIndex);
}

pelmora::RawScores PelmoraSession::rawScores() const
{
    if (!hasRawData())
        return {};
    return {.data = &m_data.matrix(), .used = &m_standardisation, .rowWise = m_rowWise};
}

int PelmoraSession::numberOfCases() const
{
    if (!hasRawData())
        return 0;
    return m_rowWise ? m_data.matrix().columns() : m_data.matrix().rows();
}

QVector<QString> PelmoraSession::variableNames() const
{
    return m_correlations.names().texts();
}

void PelmoraSession::setVariableNames(const QVector<QString>& names)
{
    const auto written = m_correlations.names().renamed(names).first(m_correlations.rows());
    m_correlations.setNames(written);
    if (hasRawData()) {
        // Names beyond the variables belong to the other orientation and stay.
        VariableNames all = m_data.names();
        for (std::size_t i = 0; i < written.size(); ++i)
            all.set(i, written[i]);
        m_data.setNames(all);
    }
    emit variableNamesChanged(written.texts());
}

void PelmoraSession::setRowWise(bool rowWise)
{
    if (rowWise == m_rowWise)
        return;
    // Both before anything is replaced: the step may fail or be cancelled.
    auto computed = pelmora::formCorrelations(m_data.matrix(), rowWise);
    if (computed.isNull())
        return;
    auto decomposition = pelmora::decompose(computed.matrix);
    if (decomposition.isNull())
        return;
    m_rowWise = rowWise;
    takeCorrelations(std::move(computed));
    createCorrelationPage();
    showDecomposition(std::move(decomposition));
    // Factor pages of this orientation missed the names that were given in the other.
    emit variableNamesChanged(variableNames());
}
