// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/factorkind.h"

#include <QCoreApplication>

namespace {

struct KindTexts
{
    FactorKind kind;
    const char* title;
    const char* loadingsExtension;
    const char* scoresExtension;
};

constexpr KindTexts kinds[] = {
    {FactorKind::Pelmora, QT_TRANSLATE_NOOP("FactorKind", "Pelmora rotated factors : "), "okt",
     "fok"},
    {FactorKind::Varimax, QT_TRANSLATE_NOOP("FactorKind", "Varimax rotated factors : "), "max",
     "fma"},
    {FactorKind::Initial, QT_TRANSLATE_NOOP("FactorKind", "Initial factors : "), "ini", "fini"}};

const KindTexts& textsOf(FactorKind kind)
{
    return kinds[static_cast<int>(kind)];
}

} // namespace

QString factorTitle(FactorKind kind)
{
    return QLatin1String(textsOf(kind).title);
}

std::optional<FactorKind> kindOfTitle(const QString& title)
{
    for (const KindTexts& texts : kinds)
        if (title == QLatin1String(texts.title))
            return texts.kind;
    return std::nullopt;
}

QString translatedTitle(FactorKind kind)
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
