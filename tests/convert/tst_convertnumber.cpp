// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/number.h"

#include <QTest>

#include <cmath>
#include <string>

using convert::Number;

class TestConvertNumber : public QObject
{
    Q_OBJECT

private slots:
    void numbersAreWrittenPlain_data();
    void numbersAreWrittenPlain();
    void othersAreRefused_data();
    void othersAreRefused();
};

void TestConvertNumber::numbersAreWrittenPlain_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<bool>("mayGroup");
    const auto row = [](const char* field, const char* plain, bool mayGroup = false) {
        QTest::newRow(field) << QByteArray(field) << QByteArray(plain) << mayGroup;
    };
    row("0", "0");
    row("-0", "-0");
    row("+007", "+007");
    row("1,234", "1.234", true);
    row("-123.456", "-123.456", true);
    row("0,435", "0.435");
    row("1234,567", "1234.567");
    row(",435", ".435");
    row("5.", "5.");
    row("1,2345", "1.2345");
    row("1e5", "100000");
    row("-1,5E-3", "-0.0015");
    row("12.50e1", "125.0");
    row("0.00e99999999999999999999", "0.00");
    row("1234567890123456789e-19", "0.1234567890123456789");
    row("0.1234567890123456789012345", "0.1234567890123456789012345");
    row("25e-7", "0.0000025");
}

void TestConvertNumber::numbersAreWrittenPlain()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, plain);
    QFETCH(bool, mayGroup);
    const std::string text = field.toStdString();
    const Number number = convert::parseNumber(text, {true, true});
    QCOMPARE(number.kind, Number::Value);
    QCOMPARE(number.mayGroup, mayGroup);
    QCOMPARE(number.value, field.replace(',', '.').toDouble());
    Number common;
    if (convert::parseCommonNumber(text, {true, true}, common)) {
        QCOMPARE(common.value, number.value);
        QCOMPARE(std::signbit(common.value), std::signbit(number.value));
        QCOMPARE(common.sign, number.sign);
        QCOMPARE(common.mayGroup, number.mayGroup);
    }
    std::string written;
    convert::appendPlainDecimal(written, text);
    QCOMPARE(QByteArray::fromStdString(written), plain);
    QCOMPARE(QByteArray::fromStdString(written).toDouble(), number.value);
}

void TestConvertNumber::othersAreRefused_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("kind");
    for (const char* field : {"", "-", ".", "+.", "1e", "e5", "1e+", "1.2.3", "1,2.3", "1.000,92",
                              "--1", "1-", "0x1", "inf", "nan", "1 0", "5%", "1e1.5",
                              "\xE2\x88\x92"
                              "1"})
        QTest::newRow(field) << QByteArray(field) << int(Number::None);
    for (const char* field : {"1e309", "-1e99999999999999999999", "1.8e308"})
        QTest::newRow(field) << QByteArray(field) << int(Number::TooLarge);
    for (const char* field : {"1e-400", "2e-324", "0.1e-99999999999999999999"})
        QTest::newRow(field) << QByteArray(field) << int(Number::TooSmall);
}

void TestConvertNumber::othersAreRefused()
{
    QFETCH(QByteArray, field);
    QFETCH(int, kind);
    Number common;
    QCOMPARE(int(convert::parseNumber(field.toStdString(), {true, true}).kind), kind);
    QVERIFY(!convert::parseCommonNumber(field.toStdString(), {true, true}, common));
}

QTEST_GUILESS_MAIN(TestConvertNumber)
#include "tst_convertnumber.moc"
