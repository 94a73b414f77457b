// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/fileexport.h"

#include "output/filewriter.h"
#include "views/longwork.h"
#include "views/sessionface.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>

#include <optional>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("FileExport", text);
}

/// Page and session of an export. Either may be deleted while a dialog is open, and the dialog with
/// it.
class Surroundings
{
public:
    Surroundings(QWidget* page, SessionFace* session)
        : m_page(page)
        , m_session(session)
        , m_hadSession(session)
    {
    }

    QWidget* page() const { return m_page; }
    SessionFace* session() const { return m_session; }
    bool areThere() const { return m_page && (m_session || !m_hadSession); }

    /// The dialog is a child of the page, whose destructor deletes it.
    void run(QDialog* dialog) const
    {
        const auto end = [dialog] {
            // A question of the dialog's own, such as whether to replace a file.
            for (auto* question : dialog->findChildren<QDialog*>())
                question->reject();
            dialog->reject();
        };
        if (m_session)
            QObject::connect(m_session, &QObject::destroyed, dialog, end);
        dialog->exec();
    }

private:
    QPointer<QWidget> m_page;
    QPointer<SessionFace> m_session;
    bool m_hadSession;
};

ChosenFile askForFile(const Surroundings& around, const FileExport& fileExport)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(
        around.page(), fileExport.caption, fileExport.proposedFile, fileExport.filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setSupportedSchemes({QStringLiteral("file")});
    around.run(dialog);
    if (!dialog)
        return {};
    ChosenFile chosen;
    if (dialog->result() == QDialog::Accepted)
        chosen = {dialog->selectedFiles().value(0), dialog->selectedNameFilter()};
    delete dialog;
    return around.areThere() ? chosen : ChosenFile();
}

bool isInputOf(const SessionFace* session, const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return session && !canonical.isEmpty() &&
           canonical == QFileInfo(session->inputFile()).canonicalFilePath();
}

bool mayReplaceInput(const Surroundings& around, const FileExport& fileExport)
{
    const QPointer<QMessageBox> box = new QMessageBox(
        QMessageBox::Question, tr("Replace the input file?"),
        tr("The session was read from this file. %1 Replace it?").arg(fileExport.inPlaceOfInput),
        QMessageBox::Yes | QMessageBox::No, around.page());
    box->setDefaultButton(QMessageBox::No);
    around.run(box);
    const bool yes = box && box->clickedButton() == box->button(QMessageBox::Yes);
    delete box;
    return yes && around.areThere();
}

/// Without rich text: a path may look like markup.
void tell(const Surroundings& around, const QString& title, const QString& text,
          const QString& details)
{
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, around.page());
    box->setInformativeText(details);
    for (auto* label : box->findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    around.run(box);
    delete box;
}

void tell(const Surroundings& around, const FileExport& fileExport, const WriteFailure& failure)
{
    const bool cannotOpen = failure.step == WriteFailure::Step::Opening;
    if (cannotOpen && fileExport.openingTitle.isEmpty())
        tell(around, tr("Error opening file"), tr("Cannot open file %1").arg(failure.path),
             failure.text());
    else if (cannotOpen)
        tell(around, fileExport.openingTitle, fileExport.openingText, failure.text());
    else if (failure.step == WriteFailure::Step::Writing && !fileExport.badStreamText.isEmpty())
        tell(around, fileExport.failureTitle, fileExport.badStreamText, failure.text());
    else
        tell(around, fileExport.failureTitle, failure.text(), QString());
}

/// Writes the file, or tells why it could not unless that is because the user has cancelled.
bool writeOrTell(const Surroundings& around, const FileExport& fileExport, const QString& path,
                 const std::function<void(std::ostream&)>& write)
{
    std::optional<WriteFailure> failure;
    {
        const LongWork work(around.page());
        failure = writeFile(path, write,
                            fileExport.isBinary ? LineEnds::AsWritten : LineEnds::OfThePlatform);
        if (LongWork::isCancelled())
            return false;
    }
    if (failure)
        tell(around, fileExport, *failure);
    return !failure;
}

} // namespace

QString decimalsInPlaceOfInput(unsigned decimals)
{
    return tr("The new file would have no more decimals than %1.").arg(decimals);
}

QString runExport(QWidget* page, SessionFace* session, const FileExport& fileExport,
                  const std::function<void(std::ostream&)>& write)
{
    return runExport(page, session, fileExport,
                     [&](std::ostream& out, const ChosenFile&) { write(out); });
}

QString runExport(QWidget* page, SessionFace* session, const FileExport& fileExport,
                  const std::function<void(std::ostream&, const ChosenFile&)>& write)
{
    const Surroundings around(page, session);
    const ChosenFile chosen = askForFile(around, fileExport);
    if (chosen.path.isEmpty() ||
        (isInputOf(around.session(), chosen.path) && !mayReplaceInput(around, fileExport)))
        return {};
    const bool written = writeOrTell(around, fileExport, chosen.path,
                                     [&](std::ostream& out) { write(out, chosen); });
    return written ? chosen.path : QString();
}
