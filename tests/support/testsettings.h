// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>

/// Keeps the program's settings of a test in a folder of its own, empty at first.
class TestSettings
{
public:
    TestSettings()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
        QCoreApplication::setOrganizationName(QStringLiteral("test.example"));
        QCoreApplication::setApplicationName(QStringLiteral("Pelmora"));
    }

    void set(const QString& key, const QVariant& value) { QSettings().setValue(key, value); }
    QVariant get(const QString& key) const { return QSettings().value(key); }
    bool has(const QString& key) const { return QSettings().contains(key); }
    void clear() { QSettings().clear(); }

private:
    QTemporaryDir m_folder;
};
