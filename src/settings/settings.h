// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The program's preferences. Every call opens the store afresh, so a change takes effect at the
/// next read; nothing is cached.
namespace settings {

/// From now on nothing is read from the store: numbers have so many decimals, and everything else
/// has its default. For programs whose output must not depend on the user.
void ignoreStore(unsigned decimals);

/// Decimals that numbers are shown and written with: the stored value, 9 where it is larger or
/// negative, 2 where there is none.
unsigned precision();
/// The stored precision unchanged, for presetting the dialog.
int storedPrecision();
void setPrecision(int decimals);

bool showSplash();
void setShowSplash(bool show);

bool openFolderAfterClosing();
void setOpenFolderAfterClosing(bool open);

QString lastDataLocation();
void setLastDataLocation(const QString& path);

QString lastCorrelationLocation();
void setLastCorrelationLocation(const QString& path);

/// Written only: on purpose nothing reads it back, the input file's folder is proposed instead.
void setLastCorrelationExportLocation(const QString& path);

/// Tuning values of the circular diagram; users change them in the store itself.
struct DiagramSettings
{
    int edgeX = 4;
    int edgeY = 4;
    int textCircleOffset = 2;
    QString circleScale = QStringLiteral("area");
};
DiagramSettings diagram();

} // namespace settings
