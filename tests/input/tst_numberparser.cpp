// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/numberparser.h"

#include "input/numberscan.h"

#include <QRandomGenerator>
#include <QTest>

#include <bit>
#include <cstdint>

using namespace pelmora;

namespace {

std::optional<double> reference(const QByteArray& text)
{
    bool ok = false;
    const double value = QString::fromLatin1(text).toDouble(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

bool same(std::optional<double> a, std::optional<double> b)
{
    return a.has_value() == b.has_value() &&
           (!a || std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b));
}

std::optional<double> parsed(const QByteArray& text)
{
    return parseNumber(text.constData(), text.constData() + text.size());
}

QByteArray digits(QRandomGenerator& random, int most)
{
    QByteArray text;
    for (int i = random.bounded(most + 1); i > 0; --i)
        text += char('0' + random.bounded(10));
    return text;
}

QByteArray likelyNumber(QRandomGenerator& random)
{
    static const char* const signs[] = {"", "", "", "-", "+", "--"};
    const int most = random.bounded(1, 26);
    QByteArray text = signs[random.bounded(6)] + digits(random, most);
    if (random.bounded(4) > 0)
        text += '.' + digits(random, most);
    return text;
}

QByteArray anyEntry(QRandomGenerator& random)
{
    static const char letters[] = "0123456789..+-";
    QByteArray text;
    for (int i = random.bounded(1, 14); i > 0; --i)
        text += letters[random.bounded(14)];
    return text;
}

} // namespace

class TestNumberParser : public QObject
{
    Q_OBJECT

private slots:
    void decidesAsTheToolkitDoes_data();
    void decidesAsTheToolkitDoes();
    void randomEntries();
    void findsWhereNumbersEnd();
};

void TestNumberParser::decidesAsTheToolkitDoes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("accepted");
    const auto row = [](const char* name, const QByteArray& text, bool accepted) {
        QTest::newRow(name) << text << accepted;
    };
    for (const char* text : {"0", "-0", "+0.5", "5.", ".5", "-.5", "00012", "007.50", "123456789",
                             "12345678.", "0.1", "9007199254740993", "-9007199254740992",
                             "0.30000000000000004", "18446744073709551616", "2.2250738585072011"})
        row(text, text, true);
    for (const char* text :
         {"", "+", "-", ".", "-.", "+.", "--1", "+-1", "1-2", "1+", "1.2.3", "1..2", "..5"})
        row(text, text, false);
    row("largest", QByteArray::number(1.7976931348623157e308, 'f', 0), true);
    row("beyond the largest", QByteArray(400, '9'), false);
    row("smallest", "0." + QByteArray(323, '0') + "5", true);
    row("underflow", "0." + QByteArray(400, '0') + "1", false);
    row("zero with many zeros", "0." + QByteArray(400, '0'), true);
    row("half of the smallest", "0." + QByteArray(323, '0') + "2", false);
    row("a megabyte of digits", "0." + QByteArray(1 << 20, '3'), true);
}

void TestNumberParser::decidesAsTheToolkitDoes()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, accepted);
    QCOMPARE(reference(text).has_value(), accepted);
    QVERIFY(same(parsed(text), reference(text)));
    QVERIFY(same(parseNumber(QString::fromLatin1(text)), reference(text)));
}

void TestNumberParser::randomEntries()
{
    QRandomGenerator random(1);
    int common = 0;
    for (int i = 0; i < 200'000; ++i) {
        const QByteArray text = random.bounded(2) ? likelyNumber(random) : anyEntry(random);
        const auto expected = reference(text);
        QVERIFY2(same(parsed(text), expected), text.constData());
        const QByteArray line = text + QByteArray(numberscan::margin, '7');
        double value = 0.0;
        if (numberscan::parseCommon(line.constData(), line.constData() + text.size(), value)) {
            ++common;
            QVERIFY2(same(value, expected), text.constData());
        }
    }
    QVERIFY(common > 50'000);
}

void TestNumberParser::findsWhereNumbersEnd()
{
    QRandomGenerator random(2);
    for (int i = 0; i < 2'000; ++i) {
        char window[numberscan::windowSize];
        for (char& byte : window)
            byte = char(random.bounded(2) ? random.bounded(256) : '+' + random.bounded(15));
        const quint64 breaks = numberscan::breaksInWindow(window);
        QCOMPARE(numberscan::breaksByWords(window), breaks);
        for (int k = 0; k < int(numberscan::windowSize); ++k)
            QCOMPARE(((breaks >> k) & 1) == 0, window[k] >= '+' && window[k] <= '9');
    }
}

QTEST_GUILESS_MAIN(TestNumberParser)
#include "tst_numberparser.moc"
