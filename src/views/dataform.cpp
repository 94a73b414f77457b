// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/dataform.h"

#include "input/asciidata.h"
#include "numerics/variablestatistics.h"
#include "output/rawdatatext.h"
#include "ui_dataform.h"
#include "views/dialogvarnames.h"
#include "views/fileexport.h"
#include "views/longwork.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/tablecopy.h"

#include <algorithm>

namespace {

constexpr int listedNames = 5; // constant variables that are named before the list is cut

/// Of the table of statistics; a note tells why a variable has no correlations.
enum Column { Mean, StandardDeviation, Minimum, Maximum, Note, ColumnCount };

QString columnTitle(int column)
{
    return QStringList{DataForm::tr("Mean"), DataForm::tr("Standard\ndeviation"),
                       DataForm::tr("Minimum"), DataForm::tr("Maximum"), DataForm::tr("Note")}
        .value(column);
}

QString caseNumber(int section)
{
    return QString::number(section + 1);
}

enum NoteKind { NoNote, Constant, TooFewCases };

QString noteText(double kind)
{
    return QStringList{QString(), DataForm::tr("constant"), DataForm::tr("too few cases")}.value(
        static_cast<int>(kind));
}

/// One row per variable; the last column holds the kind of note.
pelmora::Matrix tableOf(const std::vector<pelmora::VariableStatistics>& statistics)
{
    pelmora::Matrix values(static_cast<int>(statistics.size()), ColumnCount);
    for (int row = 0; row < values.rows(); ++row) {
        const auto& variable = statistics[static_cast<std::size_t>(row)];
        values[row][Mean] = variable.mean;
        values[row][StandardDeviation] = variable.standardDeviation;
        values[row][Minimum] = variable.minimum;
        values[row][Maximum] = variable.maximum;
        values[row][Note] = variable.hasTooFewCases() ? TooFewCases
                            : variable.isConstant()   ? Constant
                                                      : NoNote;
    }
    return values;
}

} // namespace

DataForm::DataForm(SessionFace* session, QWidget* tabWidget)
    : QWidget(tabWidget)
    , m_ui(std::make_unique<Ui::DataForm>())
    , m_session(session)
    , m_model(new NumberTableModel(this))
    , m_statistics(new NumberTableModel(this))
{
    m_ui->setupUi(this);
    m_ui->labelNoCorrelations->hide();
    m_ui->labelRowWise->hide();
    m_statistics->setHeaders(m_statistics->nameHeader(), columnTitle);
    m_statistics->showNotes(Note, noteText);
    m_ui->tableData->setModel(m_model);
    m_ui->tableStatistics->setModel(m_statistics);
    for (auto* table : {m_ui->tableData, m_ui->tableStatistics}) {
        installNameHeaders(table);
        installTableCopy(table);
    }
    connect(session, &SessionFace::variableNamesChanged, this, &DataForm::on_variableNamesChanged);
    connect(session, &QObject::destroyed, this, &DataForm::releaseSessionData);
}

DataForm::~DataForm() = default;

void DataForm::fill(const AsciiData& rawData)
{
    m_data = &rawData;
    showVariables();
}

void DataForm::showVariables()
{
    m_rowWise = m_session->isRowWise();
    const auto& values = m_data->matrix();
    m_model->fill(values);
    m_model->setHeaders(m_rowWise ? m_model->nameHeader() : caseNumber,
                        m_rowWise ? caseNumber : m_model->nameHeader());
    const auto statistics = pelmora::variableStatistics(values.rowPointers(), values.rows(),
                                                        values.columns(), m_rowWise);
    m_statistics->fill(tableOf(statistics));
    m_tooFewCases = std::any_of(statistics.begin(), statistics.end(),
                                [](const auto& variable) { return variable.hasTooFewCases(); });
    m_constant.clear();
    for (std::size_t i = 0; i < statistics.size(); ++i)
        if (statistics[i].isConstant())
            m_constant.append(static_cast<int>(i));
    // Not the session's names: it may know of no variable before the correlations are formed.
    showNames(m_data->names().first(statistics.size()).texts());
    showRowWiseMeans();
}

/// The divisor of row-wise means is not the number of cases, on purpose; users have to know that to
/// judge the correlations.
void DataForm::showRowWiseMeans()
{
    m_ui->labelRowWise->setText(
        tr("Row-wise: means are divided by the number of variables (%1), not of cases (%2), so "
           "correlations differ from those of the same data in columns.")
            .arg(m_data->rows())
            .arg(m_data->cols()));
    m_ui->labelRowWise->setVisible(m_rowWise && m_data->rows() != m_data->cols());
}

void DataForm::showNames(const QVector<QString>& names)
{
    m_model->setNames(names);
    m_statistics->setNames(names);
    fitToNames(m_ui->tableData, *m_model);
    fitToNames(m_ui->tableStatistics, *m_statistics);
    showWhole(m_ui->tableStatistics, m_ui->splitter, 1.0);
    showNoCorrelations();
}

void DataForm::showNoCorrelations()
{
    QStringList names;
    for (const int variable : m_constant.mid(0, listedNames))
        names << m_statistics->name(variable);
    if (m_constant.size() > listedNames)
        names << QStringLiteral("\u2026");
    m_ui->labelNoCorrelations->setText(
        m_tooFewCases ? tr("There are too few cases: correlations cannot be formed.")
                      : tr("Constant variables, whose correlations cannot be formed: %1")
                            .arg(names.join(", ")));
    m_ui->labelNoCorrelations->setVisible(m_tooFewCases || !m_constant.isEmpty());
}

void DataForm::releaseSessionData()
{
    m_data = nullptr;
    m_model->clear();
    m_statistics->clear();
    setEnabled(false);
}

void DataForm::on_variableNamesChanged(QVector<QString> const& names)
{
    if (names.size() == m_statistics->rowCount())
        showNames(names);
}

void DataForm::on_radioButtonColumnWise_clicked()
{
    chooseRowWise(false);
}

void DataForm::on_radioButtonRowWise_clicked()
{
    chooseRowWise(true);
}

void DataForm::chooseRowWise(bool rowWise)
{
    if (!m_data)
        return;
    if (rowWise != m_rowWise && !LongWork::isRunning()) {
        const LongWork work(this);
        m_session->setRowWise(rowWise);
    }
    // The session may have refused, for want of memory for instance, or the user cancelled.
    const bool accepted = m_session->isRowWise();
    (accepted ? m_ui->radioButtonRowWise : m_ui->radioButtonColumnWise)->setChecked(true);
    if (accepted != m_rowWise)
        showVariables();
}

void DataForm::on_pushButtonEditNames_clicked()
{
    editVariableNames(this, m_session);
}

void DataForm::on_pushButtonSave_clicked()
{
    save(QString(),
         [this](std::ostream& out) { writeRawData(out, m_data->matrix(), m_data->names()); });
}

void DataForm::on_pushButtonSaveTransposed_clicked()
{
    save(QStringLiteral("_transposed.dat"), [this](std::ostream& out) {
        const auto variables = m_rowWise ? m_data->rows() : m_data->cols();
        writeTransposed(out, m_data->matrix(), m_data->names().first(variables));
    });
}

void DataForm::save(const QString& ending, const std::function<void(std::ostream&)>& write)
{
    if (!m_data)
        return;
    runExport(
        this, m_session,
        {.caption = tr("Please select folder and filename to save values"),
         .proposedFile = m_session->outputStem() + ending,
         .filter = QStringLiteral("*.dat"),
         .failureTitle = tr("Error while trying to save file"),
         .badStreamText = tr("Cannot write to file!"),
         .inPlaceOfInput = tr("All decimals stay, but comments and other lines would be lost.")},
        write);
}
