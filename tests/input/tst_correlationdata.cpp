// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/correlationdata.h"

#include "input/asciicorrreader.h"
#include "input/inputfile.h"
#include "settings/numbertext.h"
#include "support/testsettings.h"

#include <QRandomGenerator>
#include <QTest>

#include <limits>
#include <sstream>

namespace {

void fill(CorrelationData& data, const std::vector<std::vector<double>>& rows)
{
    data.allocate(unsigned(rows.size()), unsigned(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i)
        std::copy(rows[i].begin(), rows[i].end(), data.matrix()[int(i)]);
    data.setNames(VariableNames(rows.size()));
}

QByteArray written(const CorrelationData& data)
{
    std::ostringstream out;
    writeCorrelations(out, data);
    return QByteArray::fromStdString(out.str());
}

void readBack(const QByteArray& bytes, CorrelationData& data)
{
    const InputFile file(bytes);
    AsciiCorrReader reader(file.path(), nullptr);
    QVERIFY(reader.read());
    QVERIFY(data.allocate(reader.lineCount(), reader.lineCount()));
    QVERIFY(reader.getData(data));
}

} // namespace

class TestCorrelationData : public QObject
{
    Q_OBJECT

private slots:
    void symmetryOfNotANumber();
    void exportLayout();
    void exportOfUnusualValues_data();
    void exportOfUnusualValues();
    void exportReadsBack_data();
    void exportReadsBack();
    void namesReadBack();

private:
    TestSettings m_settings;
};

void TestCorrelationData::symmetryOfNotANumber()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    CorrelationData data;
    fill(data, {{1, nan, .1}, {.5, 1, nan}, {.1, nan, 1}});
    QVERIFY(data.testSymmetry());
    data.matrix()[2][0] = .2;
    QVERIFY(!data.testSymmetry());
    QCOMPARE(data.asymmetry(), QString("Not symmetric at row 1 and col 3"));
}

void TestCorrelationData::exportLayout()
{
    m_settings.clear();
    CorrelationData data;
    fill(data, {{1, 0.347}, {0.347, 1}});
    data.setNames(VariableNames::fromTexts({"Age", "Income"}));
    QCOMPARE(written(data), QByteArray("     1  0.35\n  0.35     1\nvname\t1\tAge\n"
                                       "vname\t2\tIncome\n"));
}

void TestCorrelationData::exportOfUnusualValues_data()
{
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("precision 0") << 0 << 0.5 << QByteArray("   1");
    QTest::newRow("half") << 2 << -0.125 << QByteArray(" -0.12");
    QTest::newRow("no minus zero") << 2 << -0.001 << QByteArray("     0");
    QTest::newRow("field filled") << 2 << 100.25 << QByteArray(" 100.25");
    QTest::newRow("field overrun") << 1 << -1234.5 << QByteArray(" -1234.5");
    QTest::newRow("large") << 2 << 12345678.9 << QByteArray(" 12345678.9");
    QTest::newRow("six digits") << 9 << 0.1234567891 << QByteArray("     0.123457");
    QTest::newRow("tiny") << 5 << 0.00001 << QByteArray("  0.00001");
    QTest::newRow("tiniest") << 9 << -0.000000001 << QByteArray(" -0.000000001");
    QTest::newRow("negative setting") << -1 << 0.00002 << QByteArray("      0.00002");
}

void TestCorrelationData::exportOfUnusualValues()
{
    QFETCH(int, precision);
    QFETCH(double, value);
    m_settings.set(QStringLiteral("Precision"), precision);
    CorrelationData data;
    fill(data, {{value}});
    const QByteArray bytes = written(data);
    QTEST(bytes.left(bytes.indexOf('\n')), "text");
}

void TestCorrelationData::exportReadsBack_data()
{
    QTest::addColumn<int>("precision");
    for (int precision = 0; precision <= 9; ++precision)
        QTest::addRow("%d", precision) << precision;
}

void TestCorrelationData::exportReadsBack()
{
    QFETCH(int, precision);
    m_settings.set(QStringLiteral("Precision"), precision);
    constexpr int order = 40;
    QRandomGenerator random(quint32(precision) + 1);
    std::vector<std::vector<double>> rows(order, std::vector<double>(order, 1.0));
    for (int i = 0; i < order; ++i)
        for (int j = 0; j < i; ++j)
            rows[i][j] = rows[j][i] =
                (random.generateDouble() * 2 - 1) * std::pow(10.0, 2 - random.bounded(12));
    CorrelationData data;
    fill(data, rows);
    CorrelationData back;
    readBack(written(data), back);
    QVERIFY(back.testSymmetry());
    for (int i = 0; i < order; ++i) {
        for (int j = 0; j < order; ++j) {
            const double rounded = numbertext::rounded(rows[i][j], unsigned(precision));
            // Six digits are written.
            QVERIFY(std::abs(back.matrix()[i][j] - rounded) <= 0.5000001e-5 * std::abs(rounded));
        }
    }
}

void TestCorrelationData::namesReadBack()
{
    m_settings.clear();
    const QStringList names = {"Gr\u00F6\u00DFe", "",     "7",     "  outer  ", "a\tb",
                               "vname",           "x\ny", "\u20AC"};
    const QStringList expected = {"Gr\u00F6\u00DFe", "", "7", "outer", "a\tb", "vname", "x y", "?"};
    CorrelationData data;
    fill(data, std::vector<std::vector<double>>(8, std::vector<double>(8, 1.0)));
    data.setNames(VariableNames::fromTexts(names));
    CorrelationData back;
    readBack(written(data), back);
    QCOMPARE(back.names().texts(), expected);
}

QTEST_MAIN(TestCorrelationData)
#include "tst_correlationdata.moc"
