// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/factorform.h"

#include "output/factortext.h"
#include "settings/settings.h"
#include "ui_factorform.h"
#include "views/diagramdrawing.h"
#include "views/diagramview.h"
#include "views/drawingfile.h"
#include "views/factormodel.h"
#include "views/fileexport.h"
#include "views/longwork.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/roworder.h"
#include "views/tablecopy.h"

#include <QAction>
#include <QClipboard>
#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMessageBox>

#include <cstdlib>
#include <ostream>

FactorForm::FactorForm(QWidget* parent, int numberOfFactors, SessionFace* session)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::FactorForm>())
    , m_numberOfFactors(numberOfFactors)
    , m_session(session)
    , m_scoresModel(new NumberTableModel(this))
{
    m_ui->setupUi(this);
    m_ui->labelUnmoved->hide();
    m_ui->scoresTable->setModel(m_scoresModel);
    m_ui->tableFactors->setVerticalHeader(new NameHeader(Qt::Vertical, m_ui->tableFactors));
    // Long names must leave room for the circles.
    m_ui->tableFactors->verticalHeader()->setMaximumWidth(widestName(this));
    addDiagramActions();
    installTableCopy(m_ui->scoresTable);
    adjustDiagramView(m_ui->tableFactors);
    connect(session, &SessionFace::variableNamesChanged, this,
            &FactorForm::on_variableNamesChanged);
    connect(session, &QObject::destroyed, this, &FactorForm::releaseScores);
}

void FactorForm::addDiagramActions()
{
    QTableView* diagram = m_ui->tableFactors;
    const auto addSeparator = [diagram] {
        auto* separator = new QAction(diagram);
        separator->setSeparator(true);
        diagram->addAction(separator);
    };
    installTableCopy(diagram);
    addSeparator();
    auto* save = new QAction(tr("Save as drawing\u2026"), diagram);
    connect(save, &QAction::triggered, this, &FactorForm::saveDrawing);
    diagram->addAction(save);
    addSeparator();
    installRowOrder(diagram);
}

FactorForm::~FactorForm()
{
    // The table may be asked for scores until the last widget is gone.
    m_scoresModel->clear();
}

void FactorForm::setUp(const NamedMatrix& loadings, bool leaveOutMinimalPairs,
                       pelmora::Matrix scores)
{
    m_scores = std::move(scores);
    if (m_scores.isNull())
        m_ui->tabWidget->removeTab(m_ui->tabWidget->indexOf(m_ui->scores));
    else
        showScores();
    if (leaveOutMinimalPairs)
        m_ui->tabWidget->removeTab(m_ui->tabWidget->indexOf(m_ui->minimalPairTab));

    m_loadings = loadings.clone();
    m_model = new factorModel(m_loadings, m_numberOfFactors, this);
    setUpDiagramView(m_ui->tableFactors, m_model);
}

/// The pages of a closed session live until the window is deleted, and scores may be large.
void FactorForm::releaseScores()
{
    m_scoresModel->clear();
    m_scores = {};
}

void FactorForm::showScores()
{
    m_scoresModel->setHeaders({}, [](int column) { return tr("Factor F%1").arg(column + 1); });
    m_scoresModel->fill(m_scores);
    fitColumnWidths(m_ui->scoresTable, *m_scoresModel);
}

void FactorForm::setKind(FactorKind kind)
{
    m_kind = kind;
    m_ui->labelFactors->setFont(QFont(QStringLiteral("Helvetica [Cronyx]"), 12, QFont::Bold));
    m_ui->labelFactors->setText(factorTitle(kind));
}

void FactorForm::setUnmoved(bool unmoved)
{
    m_ui->labelUnmoved->setVisible(unmoved);
}

void FactorForm::addFocalFactorTab(QWidget* page, int factorNumber)
{
    m_ui->tabWidgetMinimalPairs->addTab(page, tr("Focal factor No. %1").arg(factorNumber));
}

void FactorForm::on_variableNamesChanged(QVector<QString> const& names)
{
    if (!m_model || names.size() != m_model->numberOfVariables())
        return;
    m_loadings.names = m_loadings.names.renamed(names);
    m_model->setVariableNames(m_loadings.names);
    // Names of other lengths need other rows.
    adjustDiagramView(m_ui->tableFactors);
    m_ui->tableFactors->viewport()->update();
}

void FactorForm::on_horizontalScrollBarZarnelSize_valueChanged(int value)
{
    zoom(value);
}

void FactorForm::on_horizontalScrollBarZarnelSize_sliderMoved(int)
{
    // The value follows the slider at once, so valueChanged has done everything.
}

void FactorForm::on_horizontalScrollBarZarnelSize_sliderReleased()
{
    zoom(std::abs(m_ui->horizontalScrollBarZarnelSize->value()));
}

void FactorForm::zoom(int value)
{
    if (!m_model)
        return;
    m_model->setDiagramSize(value);
    adjustDiagramView(m_ui->tableFactors);
}

QString FactorForm::proposedFile(const QString& pattern, const QString& extension) const
{
    return pattern.arg(m_session ? m_session->outputStem() : QString(),
                       QString::number(m_numberOfFactors), extension);
}

void FactorForm::exportText(const QString& extension, unsigned decimals,
                            const std::function<void(std::ostream&)>& write)
{
    runExport(this, m_session,
              {.caption = tr("Please select folder and filename to save values"),
               .proposedFile = proposedFile(QStringLiteral("%1_%2.%3"), extension),
               .filter = QStringLiteral("*.%1").arg(extension),
               .failureTitle = tr("Error while saving data"),
               .inPlaceOfInput = decimalsInPlaceOfInput(decimals)},
              write);
}

FileExport FactorForm::pictureExport(const QString& suffix, const QString& filter) const
{
    return {.caption = tr("Save As"),
            .proposedFile =
                proposedFile(QStringLiteral("%1_%2_%3."), loadingsExtension(m_kind)) + suffix,
            .filter = filter,
            .failureTitle = tr("Error while saving data"),
            .inPlaceOfInput = tr("A picture would take its place."),
            .isBinary = true};
}

void FactorForm::on_ExportRotated_clicked()
{
    const unsigned decimals = settings::precision();
    exportText(loadingsExtension(m_kind), decimals, [=, this](std::ostream& out) {
        writeLoadings(out, m_loadings.values, m_loadings.names, decimals);
    });
}

void FactorForm::on_pushButtonSaveScores_clicked()
{
    const unsigned decimals = m_scoresModel->decimals();
    exportText(scoresExtension(m_kind), decimals,
               [=, this](std::ostream& out) { writeScores(out, m_scores, decimals); });
}

void FactorForm::on_ImageButton_clicked()
{
    if (LongWork::isRunning())
        return;
    QImage image;
    {
        const LongWork work(this);
        image = diagramImage(m_model);
        if (LongWork::isCancelled())
            return;
    }
    if (image.isNull()) {
        QMessageBox::warning(this, tr("Error while saving data"),
                             tr("Not enough memory for the image."));
        return;
    }
    QGuiApplication::clipboard()->setImage(image, QClipboard::Clipboard);

    const QString png = QStringLiteral("png");
    const QString filter = tr("%1 Files (*.%2);;All Files (*)").arg(QStringLiteral("PNG"), png);
    runExport(this, m_session, pictureExport(png, filter),
              [&image](std::ostream& out) { writePng(out, image); });
}

void FactorForm::saveDrawing()
{
    if (!m_model)
        return;
    const auto write = [this](std::ostream& out, const ChosenFile& chosen) {
        const DiagramDrawing drawing = drawDiagram(m_model);
        const QString title = QFileInfo(chosen.path).completeBaseName();
        const QByteArray file = drawingFormat(chosen.path, chosen.filter) == DrawingFormat::Svg
                                    ? svgFile(drawing, title)
                                    : pdfFile(drawing, title, QDateTime::currentDateTimeUtc());
        out.write(file.constData(), file.size());
    };
    const QString filter = tr("PDF Files (*.pdf);;SVG Files (*.svg)");
    runExport(this, m_session, pictureExport(QStringLiteral("pdf"), filter), write);
}
