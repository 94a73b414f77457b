// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "settings/settings.h"

#include <QSettings>
#include <QTest>

class TestSettingsStore : public QObject
{
    Q_OBJECT

private slots:
    void choicesHoldWhereNothingCanBeSaved()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test.example"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null/nowhere");
        settings::setPrecision(5);
        settings::setLastDataLocation(QStringLiteral("/a/file.txt"));
        QCOMPARE(settings::precision(), 5U);
        QCOMPARE(settings::lastDataLocation(), QStringLiteral("/a/file.txt"));
    }
};

QTEST_GUILESS_MAIN(TestSettingsStore)
#include "tst_settings.moc"
