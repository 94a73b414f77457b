// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/mainwindow.h"

#include "app/aboutbox.h"
#include "app/firststeps.h"
#include "app/pelmorasession.h"
#include "app/sessiontabwidget.h"
#include "app/userguide.h"
#include "settings/settings.h"
#include "ui_mainwindow.h"
#include "views/dialogprecision.h"
#include "views/longwork.h"
#include "views/plaintooltip.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QShortcut>

struct MainWindow::InputKind
{
    QString (*lastLocation)();
    void (*setLastLocation)(const QString&);
    QString caption;
    bool (PelmoraSession::*load)(const QString&);
    QString statusText;
    bool hasRawData;
};

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_ui(std::make_unique<Ui::MainWindow>())
{
    m_ui->setupUi(this);
    setAcceptDrops(true);
    m_ui->mainTabWidget->setShownWhileEmpty(
        makeFirstSteps(m_ui->mainTabWidget, *m_ui->actionDataASCII, *m_ui->actionCorrASCII));
    auto* close = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_W), this);
    connect(close, &QShortcut::activated, this, [this] {
        if (m_ui->mainTabWidget->count() > 0)
            emit m_ui->mainTabWidget->tabCloseRequested(m_ui->mainTabWidget->currentIndex());
    });
    m_ui->actionShow_splash->setChecked(settings::showSplash());
    m_ui->actionOpen_explorer_when_closing->setChecked(settings::openFolderAfterClosing());
}

// The sessions are children of the window and are deleted after its pages; each then opens its
// folder.
MainWindow::~MainWindow() = default;

void MainWindow::on_actionDataASCII_triggered()
{
    read({.lastLocation = settings::lastDataLocation,
          .setLastLocation = settings::setLastDataLocation,
          .caption = tr("Open data file in ASCII format"),
          .load = &PelmoraSession::loadDataMatrix,
          .statusText = tr("Read data matrix, %1 rows and %2 cols"),
          .hasRawData = true});
}

void MainWindow::on_actionCorrASCII_triggered()
{
    read({.lastLocation = settings::lastCorrelationLocation,
          .setLastLocation = settings::setLastCorrelationLocation,
          .caption = tr("Open correlations file in ASCII format"),
          .load = &PelmoraSession::loadCorrelationMatrix,
          .statusText = tr("Read correlation matrix, %1 rows and %2 cols"),
          .hasRawData = false});
}

void MainWindow::read(const InputKind& kind)
{
    if (LongWork::isRunning())
        return;
    const QString path =
        QFileDialog::getOpenFileName(this, kind.caption, kind.lastLocation(), tr("Any Files *"));
    if (path.isEmpty()) {
        QMessageBox::warning(this, tr("Warning"), tr("No file selected!"));
        return;
    }
    kind.setLastLocation(path);

    const LongWork work(this, path);
    auto* session = new PelmoraSession(this);
    m_sessions.append(session);
    const QString message = m_ui->statusBar->currentMessage();
    if (!(session->*kind.load)(path)) {
        if (LongWork::isCancelled()) {
            takeBack(session, message);
        } else {
            m_ui->statusBar->clearMessage();
            discardSession(session);
        }
        return;
    }
    m_ui->statusBar->showMessage(
        kind.statusText.arg(session->rowCount()).arg(session->columnCount()));
    addSessionTab(session);

    if (kind.hasRawData) {
        session->createDataPage();
        session->createCorrelationPageFromData();
    } else {
        session->createCorrelationPage();
    }
    session->createPcaPage();
    if (LongWork::isCancelled())
        takeBack(session, message);
}

/// Removes a session that was cancelled while it was made, with its tab and its status message.
void MainWindow::takeBack(PelmoraSession* session, const QString& statusMessage)
{
    // Null while it has no tab.
    const QWidget* pages = m_ui->mainTabWidget->widget(int(m_sessions.indexOf(session)));
    session->leaveFolderClosed();
    discardSession(session);
    delete pages;
    m_ui->statusBar->showMessage(statusMessage);
}

void MainWindow::discardSession(PelmoraSession* session)
{
    m_sessions.removeOne(session);
    // Opens the folder of its file, on purpose also of one that failed: the user corrects it there.
    delete session;
}

void MainWindow::addSessionTab(PelmoraSession* session)
{
    auto* pages = new SessionTabWidget(m_ui->mainTabWidget);
    session->attachTabWidget(pages);
    // A single & in a tab's text would mark a shortcut letter and vanish from the path.
    QString title = session->inputFile();
    const int index = m_ui->mainTabWidget->addTab(pages, title.replace(u'&', QStringLiteral("&&")));
    m_ui->mainTabWidget->setTabToolTip(index, plainToolTip(session->inputFile()));
    connect(session, &PelmoraSession::pagesAdded, this, [this](const QStringList& titles) {
        m_ui->statusBar->showMessage(titles.join(QStringLiteral(", ")));
    });
}

void MainWindow::on_mainTabWidget_tabCloseRequested(int index)
{
    if (LongWork::isRunning())
        return;
    discardSession(m_sessions.value(index));
    m_ui->mainTabWidget->removeTab(index);
}

void MainWindow::on_actionPrecision_triggered()
{
    DialogPrecision dialog(this);
    dialog.setPrecision(settings::storedPrecision());
    if (dialog.exec() == QDialog::Accepted)
        settings::setPrecision(dialog.precision());
}

void MainWindow::on_actionShow_splash_toggled(bool checked)
{
    settings::setShowSplash(checked);
}

void MainWindow::on_actionOpen_explorer_when_closing_toggled(bool checked)
{
    settings::setOpenFolderAfterClosing(checked);
}

void MainWindow::on_actionAbout_triggered()
{
    showAboutBox(this);
}

void MainWindow::on_actionOnline_help_triggered()
{
    const QUrl guide = userGuideUrl();
    if (guide.isEmpty() || !QDesktopServices::openUrl(guide))
        QMessageBox::warning(this, tr("Error"), tr("Failed to open online help."));
}

bool MainWindow::event(QEvent* event)
{
    // Menu entries have no status tips of their own; their empty ones would wipe out the message
    // about the file that was read.
    if (event->type() == QEvent::StatusTip)
        return true;
    return QMainWindow::event(event);
}

// A window stays open while it is working.
void MainWindow::closeEvent(QCloseEvent* event)
{
    if (LongWork::isRunning())
        event->ignore();
    else
        QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

// Files dropped on the window are accepted and ignored, on purpose: data are read through the menus
// only.
void MainWindow::dropEvent(QDropEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}
