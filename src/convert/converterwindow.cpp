// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/converterwindow.h"

#include "convert/arguments.h"
#include "convert/commandline.h"
#include "convert/optionlabels.h"
#include "convert/previewmodel.h"
#include "convert/wording.h"
#include "output/filewriter.h"
#include "ui_converterwindow.h"

#include <QDesktopServices>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalBlocker>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <optional>
#include <ostream>
#include <utility>

using namespace convert;

namespace {

/// The role of a choice's word on the command line.
constexpr int wordRole = Qt::UserRole + 1;

template <typename Choice>
void addChoice(QComboBox* box, const QString& text, const QString& word, Choice choice)
{
    box->addItem(text, static_cast<int>(choice));
    box->setItemData(box->count() - 1, word, wordRole);
}

template <typename Choice>
Choice chosen(const QComboBox* box)
{
    return static_cast<Choice>(box->currentData().toInt());
}

/// The first entry leaves the choice to the rules and tells what they found, if anything.
template <typename Choice>
void showFound(QComboBox* box, Choice found)
{
    const int index = box->findData(static_cast<int>(found));
    box->setItemText(0, index > 0 ? ConverterWindow::tr("%1 (recognised)").arg(box->itemText(index))
                                  : ConverterWindow::tr("(to be chosen)"));
}

QString localFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

} // namespace

ConverterWindow::ConverterWindow(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::ConverterWindow>())
    , m_preview(new PreviewModel(this))
    , m_delay(new QTimer(this))
{
    m_ui->setupUi(this);
    m_ui->tablePreview->setModel(m_preview);
    m_ui->splitterPreview->setStretchFactor(1, 1);
    m_ui->splitterPreview->setSizes({180, 780});
    m_ui->splitter->setStretchFactor(0, 1);
    m_ui->splitter->setSizes({380, 160});
    m_delay->setSingleShot(true);
    m_delay->setInterval(300);
    connect(m_delay, &QTimer::timeout, m_ui->progress, &QWidget::show);
    fillChoices();
    wordByLabels();
    connectChoices();
    setBusy(false);
    showRecognised();
}

ConverterWindow::~ConverterWindow()
{
    if (m_thread) {
        m_thread->wait();
        delete m_thread;
    }
}

void ConverterWindow::fillChoices()
{
    for (QComboBox* box : {m_ui->comboKind, m_ui->comboEncoding, m_ui->comboSeparator,
                           m_ui->comboDecimal, m_ui->comboHeader})
        box->addItem(QString(), 0);
    addChoice(m_ui->comboKind, tr("Data"), QStringLiteral("data"), Kind::Data);
    addChoice(m_ui->comboKind, tr("Correlations"), QStringLiteral("correlations"),
              Kind::Correlations);
    for (int encoding = int(Encoding::Utf8); encoding <= int(Encoding::Windows1253); ++encoding)
        addChoice(m_ui->comboEncoding, nameOf(Encoding(encoding)), nameOf(Encoding(encoding)),
                  encoding);
    addChoice(m_ui->comboSeparator, tr("Tab"), QStringLiteral("tab"), Separator::Tab);
    addChoice(m_ui->comboSeparator, tr("Semicolon"), QStringLiteral("semicolon"),
              Separator::Semicolon);
    addChoice(m_ui->comboSeparator, tr("Comma"), QStringLiteral("comma"), Separator::Comma);
    addChoice(m_ui->comboSeparator, tr("Blank"), QStringLiteral("blank"), Separator::Blank);
    addChoice(m_ui->comboDecimal, tr("Point"), QStringLiteral("point"), Decimal::Point);
    addChoice(m_ui->comboDecimal, tr("Comma"), QStringLiteral("comma"), Decimal::Comma);
    addChoice(m_ui->comboHeader, tr("First row"), QStringLiteral("yes"), Header::Yes);
    addChoice(m_ui->comboHeader, tr("None"), QStringLiteral("no"), Header::No);
}

/// Lets reasons name the controls in place of the options that their tool tips tell.
void ConverterWindow::wordByLabels() const
{
    OptionLabels labels;
    for (const auto* label : findChildren<QLabel*>())
        if (label->buddy() && label->buddy()->toolTip().startsWith(u"--"))
            labels[label->buddy()->toolTip()] = label->text().chopped(1); // the colon
    labels[QStringLiteral("--columns")] = m_ui->listColumns->accessibleName();
    for (const auto* box : findChildren<QComboBox*>())
        for (int i = 1; i < box->count(); ++i) // the first leaves the choice to the program
            labels[box->toolTip() + u' ' + box->itemData(i, wordRole).toString()] =
                box->itemText(i);
    labels[QStringLiteral("--missing none")] = QStringLiteral("none");
    setWording([labels](const QString& text) { return withLabels(text, labels); });
}

void ConverterWindow::connectChoices()
{
    for (QComboBox* box : {m_ui->comboKind, m_ui->comboEncoding, m_ui->comboSeparator,
                           m_ui->comboDecimal, m_ui->comboHeader})
        connect(box, &QComboBox::activated, this, &ConverterWindow::start);
    for (QLineEdit* edit : {m_ui->editMissing, m_ui->editSkip})
        connect(edit, &QLineEdit::textEdited, this, &ConverterWindow::start);
    for (QCheckBox* box : {m_ui->checkTranspose, m_ui->checkLabels})
        connect(box, &QCheckBox::clicked, this, [this] {
            m_columnsChosen = false;
            start();
        });
}

void ConverterWindow::resetChoices()
{
    for (QComboBox* box : {m_ui->comboKind, m_ui->comboEncoding, m_ui->comboSeparator,
                           m_ui->comboDecimal, m_ui->comboHeader})
        box->setCurrentIndex(0);
    m_ui->editMissing->clear();
    m_ui->editSkip->clear();
    m_ui->checkTranspose->setChecked(false);
    m_ui->checkLabels->setChecked(false);
    m_columnsChosen = false;
}

void ConverterWindow::openFile(const QString& path)
{
    m_path = QFileInfo(path).absoluteFilePath();
    m_savedPath.clear();
    m_ui->editFile->setText(QDir::toNativeSeparators(m_path));
    resetChoices();
    start();
}

bool ConverterWindow::takeOptions(Options& options)
{
    options.kind = chosen<Kind>(m_ui->comboKind);
    options.encoding = chosen<Encoding>(m_ui->comboEncoding);
    options.separator = chosen<Separator>(m_ui->comboSeparator);
    options.decimal = chosen<Decimal>(m_ui->comboDecimal);
    options.header = chosen<Header>(m_ui->comboHeader);
    options.transpose = m_ui->checkTranspose->isChecked();
    options.labels = m_ui->checkLabels->isChecked();
    parseMissing(m_ui->editMissing->text(), options);
    if (const QString skip = m_ui->editSkip->text().trimmed(); !skip.isEmpty()) {
        const auto ranges = parseRanges(skip);
        if (!ranges)
            return false;
        options.skip = *ranges;
    }
    if (m_columnsChosen)
        takeColumns(options);
    return true;
}

void ConverterWindow::takeColumns(Options& options) const
{
    std::size_t place = 0;
    for (int i = 0; i < m_ui->listColumns->count(); ++i) {
        ++place;
        if (m_ui->listColumns->item(i)->checkState() == Qt::Checked)
            options.columns.add({place, place});
    }
    // The list ends before a very wide table does.
    if (m_result.conversion && m_result.conversion->table().columns() > PreviewModel::mostColumns)
        options.columns.add(
            {PreviewModel::mostColumns + 1, m_result.conversion->table().columns()});
}

void ConverterWindow::start()
{
    if (m_path.isEmpty())
        return;
    if (isBusy()) {
        m_startAgain = true;
        return;
    }
    Options options;
    if (!takeOptions(options)) {
        m_ui->labelState->setText(tr("Lines to leave out are numbers such as 2-3,5"));
        m_ui->buttonSave->setEnabled(false);
        return;
    }
    setBusy(true);
    auto result = std::make_shared<JobResult>();
    m_thread =
        QThread::create([result, path = m_path, options] { *result = runJob(path, options); });
    connect(m_thread, &QThread::finished, this, [this, result] { finish(*result); });
    m_thread->start();
}

void ConverterWindow::finish(const JobResult& result)
{
    m_thread->deleteLater();
    m_thread = nullptr;
    m_result = result;
    setBusy(false);
    if (std::exchange(m_startAgain, false)) {
        start();
        return;
    }
    m_preview->setConversion(m_result.conversion);
    m_ui->textReport->setPlainText(m_result.lines.join(u'\n'));
    m_ui->labelState->setText(m_result.isAccepted ? tr("Ready to be saved")
                                                  : tr("Refused as it is"));
    showRecognised();
    showColumns();
    emit settled();
}

void ConverterWindow::setBusy(bool busy)
{
    if (busy) {
        m_delay->start();
        m_ui->labelState->setText(tr("Reading…"));
    } else {
        m_delay->stop();
        m_ui->progress->hide();
    }
    m_ui->buttonSave->setEnabled(!busy && m_result.isAccepted);
    m_ui->buttonFolder->setEnabled(!m_path.isEmpty());
}

void ConverterWindow::showRecognised()
{
    const Conversion* conversion = m_result.conversion.get();
    const auto header = conversion ? conversion->hasHeader() : std::nullopt;
    showFound(m_ui->comboKind, conversion ? conversion->kind() : Kind::Unknown);
    showFound(m_ui->comboEncoding, conversion ? conversion->text().encoding() : Encoding::Unknown);
    showFound(m_ui->comboSeparator, conversion ? conversion->separator() : Separator::Unknown);
    showFound(m_ui->comboDecimal, conversion ? conversion->decimal() : Decimal::Unknown);
    showFound(m_ui->comboHeader, !header ? Header::Unknown : *header ? Header::Yes : Header::No);
}

void ConverterWindow::showColumns()
{
    const QSignalBlocker blocker(m_ui->listColumns);
    m_ui->listColumns->clear();
    if (!m_result.conversion)
        return;
    const Conversion& conversion = *m_result.conversion;
    const auto& kept = conversion.layout().kept;
    const int count = m_preview->columnCount();
    for (int i = 0; i < count; ++i) {
        const auto column = static_cast<std::size_t>(i);
        const bool isKept =
            conversion.layout().kept.empty()
                ? !m_columnsChosen || conversion.options().columns.contains(column + 1)
                : std::binary_search(kept.begin(), kept.end(), column);
        auto* item = new QListWidgetItem(
            columnText(conversion.table(), conversion.hasHeader().value_or(false), column));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(isKept ? Qt::Checked : Qt::Unchecked);
        m_ui->listColumns->addItem(item);
    }
}

void ConverterWindow::on_listColumns_itemChanged()
{
    m_columnsChosen = true;
    start();
}

void ConverterWindow::on_buttonOpen_clicked()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open a table"), QFileInfo(m_path).path(),
        tr("Tables (*.csv *.tsv *.txt *.tab *.sav *.zsav *.por *.dta *.xpt);;All files (*)"));
    if (!path.isEmpty())
        openFile(path);
}

QString ConverterWindow::proposedFile() const
{
    const QFileInfo info(m_path);
    const bool square = m_result.conversion->kind() == Kind::Correlations;
    return info.dir().filePath(info.completeBaseName() +
                               (square ? QLatin1String(".cor") : QLatin1String(".dat")));
}

void ConverterWindow::tellFailure(const QString& text)
{
    QMessageBox box(QMessageBox::Warning, tr("Error"), text, QMessageBox::Ok, this);
    // A file's name may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void ConverterWindow::on_buttonSave_clicked()
{
    if (!m_result.isAccepted || isBusy())
        return;
    const bool square = m_result.conversion->kind() == Kind::Correlations;
    const QString path = QFileDialog::getSaveFileName(this, tr("Save for Pelmora"), proposedFile(),
                                                      square ? tr("Correlation Files (*.cor)")
                                                             : tr("Data Files (*.dat)"));
    if (path.isEmpty())
        return;
    if (isSameFile(path, m_path)) {
        tellFailure(tr("%1 is the file that was read; choose another name.").arg(path));
        return;
    }
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto failure = writeFile(
        path, [this](std::ostream& out) { m_result.conversion->write(out); }, LineEnds::AsWritten);
    QGuiApplication::restoreOverrideCursor();
    if (failure) {
        tellFailure(tr("Cannot write %1").arg(failure->text()));
        return;
    }
    m_savedPath = path;
    m_ui->labelState->setText(tr("Saved as %1").arg(QDir::toNativeSeparators(path)));
}

void ConverterWindow::on_buttonFolder_clicked()
{
    const QString folder = QFileInfo(m_savedPath.isEmpty() ? m_path : m_savedPath).absolutePath();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        tellFailure(tr("Cannot open the folder %1").arg(folder));
}

void ConverterWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void ConverterWindow::dropEvent(QDropEvent* event)
{
    const QString path = localFile(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    openFile(path);
}
