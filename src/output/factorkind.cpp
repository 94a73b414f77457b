// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/factorkind.h"

#include <QCoreApplication>

namespace {

struct KindTexts
{
    const char* title;
    const char* loadingsExtension;
    const char* scoresExtension;
};

/// In the order of the kinds.
constexpr KindTexts kinds[] = {
    {.title = QT_TRANSLATE_NOOP("FactorKind", "Pelmora rotated factors : "),
     .loadingsExtension = "okt",
     .scoresExtension = "fok"},
    {.title = QT_TRANSLATE_NOOP("FactorKind", "Varimax rotated factors : "),
     .loadingsExtension = "max",
     .scoresExtension = "fma"},
    {.title = QT_TRANSLATE_NOOP("FactorKind", "Initial factors : "),
     .loadingsExtension = "ini",
     .scoresExtension = "fini"}};

static_assert(int(FactorKind::Pelmora) == 0 && int(FactorKind::Varimax) == 1 &&
              int(FactorKind::Initial) == 2);

const KindTexts& textsOf(FactorKind kind)
{
    return kinds[static_cast<int>(kind)];
}

} // namespace

QString factorTitle(FactorKind kind)
{
    return QCoreApplication::translate("FactorKind", textsOf(kind).title);
}

QString loadingsExtension(FactorKind kind)
{
    return QLatin1String(textsOf(kind).loadingsExtension);
}

QString scoresExtension(FactorKind kind)
{
    return QLatin1String(textsOf(kind).scoresExtension);
}
