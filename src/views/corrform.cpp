// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/corrform.h"

#include "input/correlationdata.h"
#include "output/correlationtext.h"
#include "settings/settings.h"
#include "ui_corrform.h"
#include "views/dialogvarnames.h"
#include "views/fileexport.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/shadedelegate.h"
#include "views/tablecopy.h"

namespace {

/// The choice of the page that was asked last, for the pages made after it.
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
    const auto name = [this](int variable) { return m_names.value(variable); };
    m_model->setHeaders(name, name);
    m_ui->tableCorrelations->setModel(m_model);
    m_ui->tableCorrelations->setItemDelegate(m_shades);
    m_ui->checkBoxShade->setChecked(lastShading());
    m_shades->setShading(lastShading());
    installNameHeaders(m_ui->tableCorrelations);
    installTableCopy(m_ui->tableCorrelations);
    connect(session, &SessionFace::variableNamesChanged, this, &CorrForm::on_variableNamesChanged);
    connect(session, &QObject::destroyed, this, &CorrForm::releaseSessionData);
}

CorrForm::~CorrForm()
{
    // The headers may be asked for names until the last widget is gone.
    m_model->clear();
}

void CorrForm::fill(const CorrelationData& correlations)
{
    m_correlations = &correlations;
    const auto& values = correlations.matrix();
    m_model->fill(values.rowPointers(), values.rows(), values.columns());
    showNames(correlations.names().first(correlations.rows()).texts());
}

void CorrForm::releaseSessionData()
{
    m_correlations = nullptr;
    m_model->clear();
    setEnabled(false);
}

void CorrForm::on_variableNamesChanged(QVector<QString> const& names)
{
    if (names.size() == m_names.size())
        showNames(names);
}

void CorrForm::showNames(const QVector<QString>& names)
{
    m_names = names;
    m_model->headersChanged();
    fitToNumbers(m_ui->tableCorrelations, *m_model);
    setLowRows(m_ui->tableCorrelations);
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
    FileExport fileExport;
    fileExport.caption = tr("Export correlation matrix");
    fileExport.proposedFile = m_session->outputStem();
    fileExport.filter = tr("Correlation Files (*.cor)");
    fileExport.openingTitle = tr("Error");
    fileExport.openingText = tr("Cannot open file for writing.");
    fileExport.failureTitle = tr("Error while trying to save file");
    fileExport.badStreamText = tr("Cannot write to file!");
    fileExport.inPlaceOfInput = decimalsInPlaceOfInput(decimals);
    const QString written = runExport(this, m_session, fileExport, [=, this](std::ostream& out) {
        writeCorrelations(out, m_correlations->matrix(), m_correlations->names(), decimals);
    });
    if (!written.isEmpty())
        settings::setLastCorrelationExportLocation(written);
}
