// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/dialogscript.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>

namespace {

QString describe(const QDialog* dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog))
        return box->windowTitle() + u'|' + box->text() +
               (box->informativeText().isEmpty() ? QString() : u'|' + box->informativeText());
    if (const auto* files = qobject_cast<const QFileDialog*>(dialog)) {
        const auto* name = files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        return files->windowTitle() + u'|' + files->directory().filePath(name->text()) + u'|' +
               files->nameFilters().join(QStringLiteral(";;"));
    }
    return dialog->windowTitle();
}

} // namespace

DialogScript::DialogScript()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    qApp->installEventFilter(this);
}

void DialogScript::chooseFile(const QString& path)
{
    m_fileAnswers.enqueue([path](QDialog* dialog) {
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void DialogScript::cancelFile()
{
    m_fileAnswers.enqueue([](QDialog* dialog) { dialog->reject(); });
}

void DialogScript::onDialog(const std::function<void(QDialog*)>& answer)
{
    m_dialogAnswers.enqueue(answer);
}

void DialogScript::onBox(const QString& title, const std::function<void(QMessageBox*)>& answer)
{
    m_boxTitle = title;
    m_boxAnswer = answer;
}

QStringList DialogScript::takeRecord()
{
    return std::exchange(m_record, {});
}

bool DialogScript::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = qobject_cast<QDialog*>(watched);
    // One that tells of progress goes by itself.
    if (dialog && event->type() == QEvent::Show && !qobject_cast<QProgressDialog*>(dialog)) {
        m_record << describe(dialog);
        QMetaObject::invokeMethod(
            this,
            [this, guarded = QPointer<QDialog>(dialog)] {
                if (guarded)
                    answer(guarded);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void DialogScript::answer(QDialog* dialog)
{
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        if (m_boxAnswer && box->windowTitle() == m_boxTitle) {
            m_boxAnswer(box);
            return;
        }
        // An overwrite question is answered with yes: a test that chose the file means it.
        auto* yes = box->button(QMessageBox::Yes);
        auto* button = yes ? yes : box->buttons().value(0);
        button ? button->click() : box->accept();
        return;
    }
    auto& answers = qobject_cast<QFileDialog*>(dialog) && !m_fileAnswers.isEmpty()
                        ? m_fileAnswers
                        : m_dialogAnswers;
    if (answers.isEmpty()) {
        m_record << QStringLiteral("unanswered: ") + dialog->windowTitle();
        dialog->reject();
        return;
    }
    answers.dequeue()(dialog);
}
