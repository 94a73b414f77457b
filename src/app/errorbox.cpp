// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/errorbox.h"

#include "input/readerreport.h"
#include "numerics/errorreport.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

/// What the numerics report; named here for translators.
[[maybe_unused]] constexpr const char* texts[] = {
    QT_TRANSLATE_NOOP("Numerics", "Error: no convergence in finding eigen values."),
    QT_TRANSLATE_NOOP("Numerics", "allocation failure in dvector()"),
    QT_TRANSLATE_NOOP("Numerics", "allocation failure 1 in matrix()"),
    QT_TRANSLATE_NOOP("Numerics", "allocation failure 2 in matrix()")};

void showError(const char* text)
{
    QMessageBox::warning(nullptr, QCoreApplication::translate("Numerics", "Error"),
                         QCoreApplication::translate("Numerics", text), QMessageBox::Ok);
}

/// Without rich text: the text may quote a file, which may look like markup.
void showReaderMessage(const ReaderMessage& message)
{
    const bool warning = message.severity == ReaderMessage::Severity::Warning;
    QMessageBox box(warning ? QMessageBox::Warning : QMessageBox::Information, message.title,
                    message.text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

void installErrorBox()
{
    pelmora::setErrorReport(showError);
    setReaderReport(showReaderMessage);
}
