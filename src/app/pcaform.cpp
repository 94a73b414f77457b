// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/pcaform.h"

#include "app/pelmorasession.h"
#include "numerics/numberoffactors.h"
#include "output/eigentext.h"
#include "settings/settings.h"
#include "ui_pcaform.h"
#include "views/fileexport.h"
#include "views/longwork.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/tablecopy.h"

#include <QMessageBox>

namespace {

void showMatrix(QTableView* view, NumberTableModel* model, const pelmora::Matrix& matrix)
{
    model->fill(matrix);
    fitColumnWidths(view, *model);
}

} // namespace

PCAForm::PCAForm(PelmoraSession* session, QWidget* tabWidget)
    : QWidget(tabWidget)
    , m_ui(std::make_unique<Ui::PCAForm>())
    , m_session(session)
    , m_names(session->names())
    , m_eigenvalueModel(new NumberTableModel(this))
    , m_eigenvectorModel(new NumberTableModel(this))
    , m_loadingModel(new NumberTableModel(this))
{
    m_ui->setupUi(this);
    const auto factorTitle = [](int factor) { return tr("Factor F%1").arg(factor + 1); };
    m_eigenvalueModel->setHeaders(
        [](int row) {
            return QStringList{tr("Eigenvalues"), tr("Variance[%]"), tr("Cumulative\nVariance[%]")}
                .value(row);
        },
        [](int column) { return QString::number(column + 1); });
    for (auto* model : {m_eigenvectorModel, m_loadingModel})
        model->setHeaders(model->nameHeader(), factorTitle);
    showNames();

    m_ui->tableWidgetEigenwerte->setModel(m_eigenvalueModel);
    m_ui->tableWidgetEigenvektoren->setModel(m_eigenvectorModel);
    m_ui->tableWidgetFaktorladungen->setModel(m_loadingModel);
    for (QTableView* table : findChildren<QTableView*>())
        installTableCopy(table);
    installNameHeaders(m_ui->tableWidgetEigenvektoren);
    installNameHeaders(m_ui->tableWidgetFaktorladungen);

    connect(session, &SessionFace::variableNamesChanged, this, &PCAForm::on_variableNamesChanged);
    connect(session, &QObject::destroyed, this, &PCAForm::releaseSessionData);
}

PCAForm::~PCAForm()
{
    // The table may be asked for numbers until the last widget is gone.
    m_eigenvalueModel->clear();
}

void PCAForm::fill(const pelmora::Decomposition& decomposition)
{
    m_varianceTable = pelmora::varianceTable(decomposition.eigenvalues);
    showMatrix(m_ui->tableWidgetEigenwerte, m_eigenvalueModel, m_varianceTable);
    m_ui->tableWidgetEigenwerte->resizeRowsToContents();
    showMatrix(m_ui->tableWidgetEigenvektoren, m_eigenvectorModel, decomposition.eigenvectors);
    showMatrix(m_ui->tableWidgetFaktorladungen, m_loadingModel, decomposition.initialLoadings);
    // The maximum first: a value above it would be cut. With a single variable it pulls the minimum
    // down with it.
    m_ui->spinBoxNumberOfFactors->setMaximum(decomposition.eigenvalues.size());
    m_ui->spinBoxNumberOfFactors->setValue(
        pelmora::countEigenvaluesOfAtLeastOne(decomposition.eigenvalues));
}

void PCAForm::releaseSessionData()
{
    m_eigenvectorModel->clear();
    m_loadingModel->clear();
}

void PCAForm::on_variableNamesChanged(QVector<QString> const& names)
{
    if (names.size() != static_cast<qsizetype>(m_names.size()))
        return;
    m_names = m_names.renamed(names);
    showNames();
}

void PCAForm::showNames()
{
    const QVector<QString> texts = m_names.texts();
    m_eigenvectorModel->setNames(texts);
    m_loadingModel->setNames(texts);
}

void PCAForm::on_processButton_clicked()
{
    const int numberOfFactors = m_ui->spinBoxNumberOfFactors->value();
    unsigned kinds = 0;
    if (m_ui->checkBoxPelmora->isChecked())
        kinds |= PelmoraSession::PelmoraBit;
    if (m_ui->checkBoxVarimax->isChecked())
        kinds |= PelmoraSession::VarimaxBit;
    if (m_ui->checkBoxUnrotated->isChecked())
        kinds |= PelmoraSession::UnrotatedBit;
    if (kinds == 0) {
        QMessageBox::information(this, tr("Error"),
                                 tr("Please select at least one type of rotation"));
        return;
    }
    if (!m_session || LongWork::isRunning())
        return;
    const LongWork work(this);
    m_session->createRotationPages(numberOfFactors, kinds);
}

void PCAForm::on_pushButtonExportEigenwerte_clicked()
{
    save(QStringLiteral("*.eig"), [this](std::ostream& out, unsigned decimals) {
        writeEigenvalues(out, m_varianceTable, decimals);
    });
}

void PCAForm::on_pushButtonExportEigenvektoren_clicked()
{
    save(QStringLiteral("*.vec"), [this](std::ostream& out, unsigned decimals) {
        writeFactorMatrix(out, m_session->decomposition().eigenvectors, m_names, decimals);
    });
}

void PCAForm::on_pushButton_clicked()
{
    save(QStringLiteral("*.ini"), [this](std::ostream& out, unsigned decimals) {
        writeFactorMatrix(out, m_session->decomposition().initialLoadings, m_names, decimals);
    });
}

void PCAForm::save(const QString& filter, const Write& write)
{
    if (!m_session)
        return;
    const unsigned decimals = settings::precision();
    runExport(this, m_session,
              {.caption = tr("Please select folder and filename to save values"),
               .proposedFile = m_session->outputStem(),
               .filter = filter,
               .failureTitle = tr("Error while trying to save file"),
               .badStreamText = tr("Cannot write to file!"),
               .inPlaceOfInput = decimalsInPlaceOfInput(decimals)},
              [&](std::ostream& out) { write(out, decimals); });
}
