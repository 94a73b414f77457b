// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/errorbox.h"
#include "app/mainwindow.h"
#include "app/pelmorasession.h"
#include "support/datarows.h"
#include "support/dialogscript.h"
#include "support/samplefile.h"
#include "support/testsettings.h"

#include <QAction>
#include <QCheckBox>
#include <QDesktopServices>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>

/// Every test has a new main window with settings of its own; the addresses that the program would
/// hand to the desktop are taken.
class AppTest : public QObject
{
    Q_OBJECT

public:
    AppTest() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl"); }
    ~AppTest() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

public slots:
    void openUrl(const QUrl& url) { m_opened << url.toLocalFile(); }

protected:
    void trigger(const QString& action) const { m_window->findChild<QAction*>(action)->trigger(); }
    void read(const QString& action, const QString& path)
    {
        m_dialogs.chooseFile(path);
        trigger(action);
    }
    QTabWidget* sessions() const
    {
        return m_window->findChild<QTabWidget*>(QStringLiteral("mainTabWidget"));
    }
    /// The pages of the session in front.
    QTabWidget* pages() const { return qobject_cast<QTabWidget*>(sessions()->currentWidget()); }
    PelmoraSession* session() const { return m_window->findChild<PelmoraSession*>(); }
    /// A widget of the page in front.
    template <typename Widget>
    Widget* find(const QString& name = {}) const
    {
        return pages()->currentWidget()->findChild<Widget*>(name);
    }
    /// Reads raw data and asks for all kinds of factor page.
    void openSession(const QString& path)
    {
        read("actionDataASCII", path);
        for (auto* box : pages()->currentWidget()->findChildren<QCheckBox*>())
            box->setChecked(true);
        find<QPushButton>("processButton")->click();
        QCOMPARE(pages()->count(), 6);
    }
    /// What a button of the page in front writes.
    QByteArray saved(const QString& button)
    {
        const QTemporaryDir folder;
        m_dialogs.chooseFile(folder.filePath(QStringLiteral("saved")));
        find<QPushButton>(button)->click();
        return contentsOf(folder.filePath(QStringLiteral("saved")));
    }
    static QStringList titles(const QTabWidget* tabs)
    {
        QStringList result;
        for (int i = 0; i < tabs->count(); ++i)
            result << tabs->tabText(i);
        return result;
    }

    const QByteArray fourCases = "1 2 4\n2 1 5\n3 5 1\n4 3 3\n";
    DialogScript m_dialogs;
    TestSettings m_settings;
    QStringList m_opened;
    std::unique_ptr<MainWindow> m_window;

private slots:
    void initTestCase() { installErrorBox(); }
    void init()
    {
        m_settings.clear();
        m_dialogs.takeRecord();
        m_opened.clear();
        // A slot whose name fits no widget.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("No matching signal")));
        m_window = std::make_unique<MainWindow>(nullptr);
    }
    void cleanup() { m_window.reset(); }
};
