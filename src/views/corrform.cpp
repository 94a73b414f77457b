// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/corrform.h"

#include "input/correlationdata.h"
#include "output/correlationtext.h"
#include "settings/settings.h"
#include "ui_corrform.h"
#include "views/adequacypage.h"
#include "views/antiimagepage.h"
#include "views/dialogvarnames.h"
#include "views/factornumberpage.h"
#include "views/fileexport.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/shadedelegate.h"
#include "views/tablecopy.h"
#include "views/waitcursor.h"

namespace {

/// What the user chose last on any page; pages made later start with it.
bool& lastShading()
{
    static bool shading = true;
    return shading;
}

} // namespace

CorrForm::CorrForm(SessionFace* session, QWidget* tabWidget)
    : QWidget(tabWidget)
    , m_ui(std::make_unique<Ui::CorrForm>())
    , m_session(session)
    , m_model(new NumberTableModel(this))
    , m_shades(new ShadeDelegate(*m_model, this))
{
    m_ui->setupUi(this);
    m_model->setHeaders(m_model->nameHeader(), m_model->nameHeader());
    m_model->showExactInToolTips();
    m_ui->tableCorrelations->setModel(m_model);
    m_ui->tableCorrelations->setItemDelegate(m_shades);
    m_ui->checkBoxShade->setChecked(lastShading());
    m_shades->setShading(lastShading());
    installNameHeaders(m_ui->tableCorrelations);
    installTableCopy(m_ui->tableCorrelations);
    addPages();
    connect(session, &SessionFace::variableNamesChanged, this, &CorrForm::on_variableNamesChanged);
    connect(session, &QObject::destroyed, this, &CorrForm::releaseSessionData);
}

void CorrForm::addPages()
{
    QTabWidget* tabs = m_ui->tabWidgetCorrelations;
    m_adequacyPage = new AdequacyPage(tabs);
    m_antiImagePage = new AntiImagePage(tabs);
    m_factorNumberPage = new FactorNumberPage(tabs);
    tabs->addTab(m_adequacyPage, tr("Adequacy"));
    tabs->addTab(m_antiImagePage, tr("Anti-image"));
    tabs->addTab(m_factorNumberPage, tr("Number of factors"));
    connect(m_factorNumberPage, &FactorNumberPage::casesChanged, this, &CorrForm::showBartlett);
}

CorrForm::~CorrForm()
{
    // The session may have replaced the matrix, and the table lives until the last widget is gone.
    m_model->clear();
}

void CorrForm::fill(const CorrelationData& correlations)
{
    m_correlations = &correlations;
    m_model->fill(correlations.matrix());
    m_factorNumberPage->setCases(m_session->numberOfCases());
    showNames(correlations.names().first(correlations.rows()).texts());
}

void CorrForm::on_tabWidgetCorrelations_currentChanged(int index)
{
    if (!m_correlations || !m_session || m_session->decomposition().isNull())
        return;
    const QWidget* page = m_ui->tabWidgetCorrelations->widget(index);
    if (page == m_factorNumberPage && !m_factorNumberPage->isComputed())
        computeNumberOfFactors();
    if ((page == m_adequacyPage || page == m_antiImagePage) && !m_hasAdequacy)
        computeAdequacy();
}

void CorrForm::computeAdequacy()
{
    const WaitCursor waiting;
    const pelmora::Matrix& matrix = m_correlations->matrix();
    pelmora::Adequacy adequacy = pelmora::adequacy(matrix, m_session->decomposition());
    m_adequacyPage->showAdequacy(adequacy, matrix.rows());
    m_antiImagePage->showAntiImage(std::move(adequacy.antiImage), adequacy.lnDeterminant.obstacle,
                                   matrix.rows());
    m_hasAdequacy = true;
    showBartlett();
}

void CorrForm::computeNumberOfFactors()
{
    const WaitCursor waiting;
    m_factorNumberPage->compute(m_correlations->matrix(), m_session->decomposition());
}

void CorrForm::showBartlett()
{
    if (m_hasAdequacy && m_correlations)
        m_adequacyPage->showBartlett(pelmora::bartlettTest(
            m_correlations->matrix(), m_session->decomposition(), m_factorNumberPage->cases()));
}

void CorrForm::releaseSessionData()
{
    m_correlations = nullptr;
    m_model->clear();
    m_adequacyPage->clear();
    m_antiImagePage->clear();
    m_factorNumberPage->clear();
    setEnabled(false);
}

void CorrForm::on_variableNamesChanged(QVector<QString> const& names)
{
    if (names.size() == m_model->rowCount())
        showNames(names);
}

void CorrForm::showNames(const QVector<QString>& names)
{
    m_model->setNames(names);
    fitToNumbers(m_ui->tableCorrelations, *m_model);
    setLowRows(m_ui->tableCorrelations);
    m_adequacyPage->setNames(names);
    m_antiImagePage->setNames(names);
}

void CorrForm::on_checkBoxShade_toggled(bool checked)
{
    lastShading() = checked;
    m_shades->setShading(checked);
    m_ui->tableCorrelations->viewport()->update();
}

void CorrForm::on_pushButtonEditNames_clicked()
{
    editVariableNames(this, m_session);
}

void CorrForm::on_pushButtonSave_clicked()
{
    if (!m_correlations)
        return;
    const unsigned decimals = settings::precision();
    const QString written = runExport(this, m_session,
                                      {.caption = tr("Export correlation matrix"),
                                       .proposedFile = m_session->outputStem(),
                                       .filter = tr("Correlation Files (*.cor)"),
                                       .openingTitle = tr("Error"),
                                       .openingText = tr("Cannot open file for writing."),
                                       .failureTitle = tr("Error while trying to save file"),
                                       .badStreamText = tr("Cannot write to file!"),
                                       .inPlaceOfInput = decimalsInPlaceOfInput(decimals)},
                                      [=, this](std::ostream& out) {
                                          writeCorrelations(out, m_correlations->matrix(),
                                                            m_correlations->names(), decimals);
                                      });
    if (!written.isEmpty())
        settings::setLastCorrelationExportLocation(written);
}
