// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/wording.h"

#include <QCoreApplication>

#include <utility>

namespace convert {

namespace {

Wording wordingInForce;

} // namespace

void setWording(Wording wording)
{
    wordingInForce = std::move(wording);
}

QString tr(const char* text)
{
    const QString translated = QCoreApplication::translate("Convert", text);
    return wordingInForce ? wordingInForce(translated) : translated;
}

} // namespace convert
