// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/conversionjob.h"

#include <QWidget>

#include <memory>

class PreviewModel;
class QComboBox;
class QListWidgetItem;
class QThread;
class QTimer;

namespace Ui {
class ConverterWindow;
}

/// Shows what was recognised in a file, lets every choice be changed, and saves what the program
/// reads. The file is read and converted anew after each change, on a thread of its own.
class ConverterWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ConverterWindow(QWidget* parent);
    ~ConverterWindow() override;

    /// Starts with what is recognised in the file.
    void openFile(const QString& path);
    bool isBusy() const { return m_thread != nullptr; }

signals:
    /// Preview and report show the present choices.
    void settled();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void on_buttonOpen_clicked();
    void on_buttonSave_clicked();
    void on_buttonFolder_clicked();
    void on_listColumns_itemChanged();

private:
    void fillChoices();
    void resetChoices();
    void wordByLabels() const;
    void connectChoices();
    void start();
    void finish(const convert::JobResult& result);
    bool takeOptions(convert::Options& options);
    void takeColumns(convert::Options& options) const;
    void showRecognised();
    void showColumns();
    void setBusy(bool busy);
    void tellFailure(const QString& text);
    QString proposedFile() const;

    std::unique_ptr<Ui::ConverterWindow> m_ui;
    PreviewModel* m_preview;
    QTimer* m_delay; ///< a progress bar for every key stroke would flicker
    QString m_path;
    QString m_savedPath;
    convert::JobResult m_result;
    QThread* m_thread = nullptr;
    bool m_startAgain = false; ///< a choice was changed meanwhile
    bool m_columnsChosen = false;
};
