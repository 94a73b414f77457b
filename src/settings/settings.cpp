// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "settings/settings.h"

#include <QSettings>

#include <optional>

namespace settings {

namespace {

const auto precisionKey = QStringLiteral("Precision");
const auto showSplashKey = QStringLiteral("ShowSplash");
const auto openFolderKey = QStringLiteral("OpenFolderAfterClosing");
const auto lastDataKey = QStringLiteral("Input/LastDataASCIILocation");
const auto lastCorrelationKey = QStringLiteral("Input/LastCorrASCIILocation");
const auto lastCorrelationExportKey = QStringLiteral("Export/LastCorrExportLocation");

constexpr int defaultPrecision = 2;

/// Where set, used instead of the store.
std::optional<unsigned> decimalsInstead;

QVariant value(const QString& key, const QVariant& absent = QVariant())
{
    if (decimalsInstead)
        return key == precisionKey ? QVariant(*decimalsInstead) : absent;
    return QSettings().value(key, absent);
}

void setValue(const QString& key, const QVariant& value)
{
    QSettings().setValue(key, value);
}

} // namespace

void ignoreStore(unsigned decimals)
{
    decimalsInstead = decimals;
}

unsigned precision()
{
    // Signed and long: a text store hands numbers over as text, which toUInt would read as 0 where
    // it is -1, and toInt would cut.
    const qlonglong stored = value(precisionKey, defaultPrecision).toLongLong();
    return stored >= 0 && stored < 9 ? static_cast<unsigned>(stored) : 9U;
}

int storedPrecision()
{
    return value(precisionKey, defaultPrecision).toInt();
}

void setPrecision(int decimals)
{
    setValue(precisionKey, decimals);
}

bool showSplash()
{
    return value(showSplashKey, true).toBool();
}

void setShowSplash(bool show)
{
    setValue(showSplashKey, show);
}

bool openFolderAfterClosing()
{
    return value(openFolderKey, true).toBool();
}

void setOpenFolderAfterClosing(bool open)
{
    setValue(openFolderKey, open);
}

QString lastDataLocation()
{
    return value(lastDataKey).toString();
}

void setLastDataLocation(const QString& path)
{
    setValue(lastDataKey, path);
}

QString lastCorrelationLocation()
{
    return value(lastCorrelationKey).toString();
}

void setLastCorrelationLocation(const QString& path)
{
    setValue(lastCorrelationKey, path);
}

void setLastCorrelationExportLocation(const QString& path)
{
    setValue(lastCorrelationExportKey, path);
}

DiagramSettings diagram()
{
    const DiagramSettings absent;
    return {.edgeX = value(QStringLiteral("Zarnel/edge.x"), absent.edgeX).toInt(),
            .edgeY = value(QStringLiteral("Zarnel/edge.y"), absent.edgeY).toInt(),
            .textCircleOffset =
                value(QStringLiteral("Zarnel/textCircleOffset"), absent.textCircleOffset).toInt(),
            .circleScale = value(QStringLiteral("Zarnel/circel"), absent.circleScale).toString()};
}

} // namespace settings
