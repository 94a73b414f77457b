// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/numbertext.h"
#include "settings/settings.h"
#include "support/datarows.h"
#include "support/testsettings.h"

#include <QTest>

#include <cmath>
#include <limits>

class TestNumberText : public QObject
{
    Q_OBJECT

private slots:
    void roundingTakesHalvesUpwards_data()
    {
        const DataRows<double, unsigned, double> row("value", "decimals", "expected");
        row("half", 2.5, 0U, 3.0);
        row("negative half", -2.5, 0U, -2.0);
        row("eighth", 0.125, 2U, 0.13);
        row("negative eighth", -0.125, 2U, -0.12);
        row("below a tie in binary", 0.285, 2U, 0.28);
        row("nine decimals", 0.1234567894, 9U, 0.123456789);
        row("more than nine decimals", 0.12345678949, 12U, 0.123456789);
        row("never minus zero", -0.001, 2U, 0.0);
    }

    void roundingTakesHalvesUpwards()
    {
        QFETCH(double, value);
        QFETCH(unsigned, decimals);
        QFETCH(double, expected);
        const double result = numbertext::rounded(value, decimals);
        QCOMPARE(result, expected);
        QCOMPARE(std::signbit(result), std::signbit(expected));
    }

    void fixedRoundsFirst()
    {
        QCOMPARE(numbertext::fixed(-0.125, 2), QStringLiteral("-0.12"));
        QCOMPARE(numbertext::fixed(-0.001, 2), QStringLiteral("0.00"));
        QCOMPARE(numbertext::fixed(1.0, 9), QStringLiteral("1.000000000"));
        QCOMPARE(numbertext::general(0.00001), std::string("1e-05"));
        QCOMPARE(numbertext::rightAligned("0.5", 6), std::string("   0.5"));
        QCOMPARE(numbertext::rightAligned("1234567", 6), std::string("1234567"));
    }

    void precisionIsReadAfresh_data()
    {
        const DataRows<QVariant, unsigned> row("stored", "decimals");
        row("absent", QVariant(), 2U);
        row("zero", QVariant(0), 0U);
        row("five", QVariant(5), 5U);
        row("too large", QVariant(12), 9U);
        row("negative", QVariant(-1), 9U);
        row("too large for an int", QVariant(QStringLiteral("4294967298")), 9U);
        row("no number", QVariant(QStringLiteral("12abc")), 0U);
    }

    void precisionIsReadAfresh()
    {
        QFETCH(QVariant, stored);
        QFETCH(unsigned, decimals);
        TestSettings store;
        if (stored.isValid())
            store.set(QStringLiteral("Precision"), stored);
        QCOMPARE(settings::precision(), decimals);
    }

    void notFiniteNumbersReadAlike()
    {
        const double nan = std::nan("");
        const double infinity = std::numeric_limits<double>::infinity();
        for (const double number : {nan, -nan}) {
            QCOMPARE(numbertext::fixed(number, 2), QStringLiteral("nan"));
            QCOMPARE(numbertext::general(number), std::string("nan"));
        }
        QCOMPARE(numbertext::fixed(-infinity, 2), QStringLiteral("-inf"));
        QCOMPARE(numbertext::general(infinity), std::string("inf"));
    }

    void shortestFormReadsBack()
    {
        QCOMPARE(numbertext::shortest(1e-7), std::string("0.0000001"));
        for (const double number : {0.1, -1.0 / 3.0, 5e-324, 1.7976931348623157e308, 1e22, -0.0}) {
            const std::string text = numbertext::shortest(number);
            QVERIFY(text.find_first_not_of("-.0123456789") == std::string::npos);
            const double back = QByteArray::fromStdString(text).toDouble();
            QCOMPARE(back, number);
            QCOMPARE(std::signbit(back), std::signbit(number));
        }
    }
};

QTEST_GUILESS_MAIN(TestNumberText)
#include "tst_numbertext.moc"
