// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "support/testsettings.h"

#include <QRegularExpression>
#include <QTest>

/// Every test begins with settings of its own and fails when a slot's name fits no widget.
class ViewTest : public QObject
{
    Q_OBJECT

protected:
    TestSettings m_settings;

protected slots:
    void init()
    {
        m_settings.clear();
        QTest::failOnWarning(QRegularExpression("No matching signal"));
    }
};
