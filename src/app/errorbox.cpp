// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/errorbox.h"

#include "numerics/errorreport.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

void showError(const char* text)
{
    QMessageBox::warning(nullptr, QCoreApplication::translate("Numerics", "Error"),
                         QCoreApplication::translate("Numerics", text), QMessageBox::Ok);
}

} // namespace

void installErrorBox()
{
    pelmora::setErrorReport(showError);
}
