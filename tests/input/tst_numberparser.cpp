// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/numberparser.h"

#include "input/scan/numberscan.h"

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

/// Any mixture, or what is likely a number.
QByteArray randomEntry(QRandomGenerator& random)
{
    static const char letters[] = "0123456789..+-";
    const auto some = [&random](int most, int choices) {
        QByteArray text;
        for (int i = random.bounded(most + 1); i > 0; --i)
            text += letters[random.bounded(choices)];
        return text;
    };
    if (random.bounded(2) == 0)
        return letters[random.bounded(14)] + some(12, 14);
    static const char* const signs[] = {"", "", "", "-", "+", "--"};
    const int most = random.bounded(1, 26);
    const QByteArray text = signs[random.bounded(6)] + some(most, 10);
    return random.bounded(4) > 0 ? text + '.' + some(most, 10) : text;
}

} // namespace

class TestNumberParser : public QObject
{
    Q_OBJECT

private slots:
    void decidesAsTheToolkitDoes()
    {
        const QByteArray zeros(400, '0');
        const QByteArrayList numbers =
            QByteArray("-0 +0.5 5. -.5 9007199254740993 900719925474.0995 18446744073709551616")
                .split(' ') +
            QByteArrayList{QByteArray::number(1.7976931348623157e308, 'f', 0), "0." + zeros,
                           "0." + zeros.first(22) + '1', "0." + zeros.first(323) + '5',
                           "0." + QByteArray(1 << 20, '3')};
        const QByteArrayList others =
            QByteArray(" + -. --1 1-2 1+ ..5 1.2.3").split(' ') +
            QByteArrayList{"0." + zeros + '1', "0." + zeros.first(323) + '2', QByteArray(400, '9')};
        for (const QByteArray& text : numbers + others) {
            const auto expected = reference(text);
            QCOMPARE(expected.has_value(), numbers.contains(text));
            QVERIFY2(same(parsed(text), expected), text.constData());
            QVERIFY(same(parseNumber(QString::fromLatin1(text)), expected));
        }
    }

    void randomEntries()
    {
        QRandomGenerator random(1);
        int common = 0;
        for (int i = 0; i < 200'000; ++i) {
            const QByteArray text = randomEntry(random);
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

    void findsWhereNumbersEnd()
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
};

QTEST_GUILESS_MAIN(TestNumberParser)
#include "tst_numberparser.moc"
