// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/mainwindow.h"
#include "support/dialogscript.h"

#include <QDir>

class QTabWidget;

/// Drives the real main window as a user would, tells what it does line by line, and leaves every
/// export and a picture of every page in one folder.
class Tour
{
public:
    Tour(const QDir& outputFolder, const QDir& samples);

    /// Reads both samples and walks through all that can be done with them.
    /// @returns whether everything asked for came about
    bool run();

private:
    void readSample(const char* action, const QString& file);
    void makeFactorPages(QTabWidget* pages);
    void visitSession(const QString& prefix);
    void visitTabs(QTabWidget* tabs, const QString& prefix);
    void visitCorrelations(QTabWidget* tabs, const QString& prefix);
    void visitFactorPage(QWidget* page, const QString& prefix);
    void zoom(QWidget* page, const QString& prefix);
    void exportFrom(QWidget* page, const char* button, const QString& file);
    void closeSession();
    void visitConverter();
    void takePicture(const QString& name);
    void takePicture(QWidget& window, const QString& name);
    void say(const QString& text) const;
    void expect(bool held, const QString& what);

    QDir m_output;
    QDir m_samples;
    DialogScript m_dialogs;
    MainWindow m_window;
    bool m_succeeded = true;
};
