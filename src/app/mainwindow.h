// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QMainWindow>

#include <memory>

class PelmoraSession;

namespace Ui {
class MainWindow;
}

/// The program's one top-level window: the menus and one closable tab per analysis session.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent);
    ~MainWindow() override;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void on_actionDataASCII_triggered();
    void on_actionCorrASCII_triggered();
    void on_actionPrecision_triggered();
    void on_actionShow_splash_toggled(bool checked);
    void on_actionAbout_triggered();
    void on_actionOpen_explorer_when_closing_toggled(bool checked);
    void on_actionOnline_help_triggered();
    void on_mainTabWidget_tabCloseRequested(int index);

private:
    /// What differs between the two ways of starting a session from a file.
    struct InputKind;

    void read(const InputKind& kind);
    void discardSession(PelmoraSession* session);
    void addSessionTab(PelmoraSession* session);
    void takeBack(PelmoraSession* session, const QString& statusMessage);

    std::unique_ptr<Ui::MainWindow> m_ui;
    /// Entry i is the session shown in tab i.
    QList<PelmoraSession*> m_sessions;
};
