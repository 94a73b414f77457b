// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQueue>
#include <QStringList>

#include <functional>

class QDialog;
class QMessageBox;

/// Watches the real boxes and dialogs that the program opens, notes each, and answers it as the
/// test prepared. Message boxes need no preparation: their first button is clicked.
class DialogScript : public QObject
{
    Q_OBJECT

public:
    DialogScript();

    /// Answers the next file dialog with @p path.
    void chooseFile(const QString& path);
    /// Cancels the next file dialog.
    void cancelFile();
    /// Hands the next dialog of any other kind (or an unprepared file dialog) to @p answer, which
    /// must end it.
    void onDialog(const std::function<void(QDialog*)>& answer);

    /// Hands every message box of that title to @p answer instead, which must end it.
    void onBox(const QString& title, const std::function<void(QMessageBox*)>& answer);

    /// What appeared, in order: "title|text" for a message box, "title|text|informative text" where
    /// there is one, "caption|proposed file|filter" for
    /// a file dialog, "title" for any other; cleared by the call.
    QStringList takeRecord();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer(QDialog* dialog);

    QStringList m_record;
    QQueue<std::function<void(QDialog*)>> m_fileAnswers;
    QQueue<std::function<void(QDialog*)>> m_dialogAnswers;
    QString m_boxTitle;
    std::function<void(QMessageBox*)> m_boxAnswer;
};
