// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/readerreport.h"

void showReaderReport(QMessageBox::Icon icon, const QString& title, const QString& text)
{
    QMessageBox box(icon, title, text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}
