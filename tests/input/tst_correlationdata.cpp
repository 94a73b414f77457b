// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/correlationdata.h"

#include "input/asciicorrreader.h"
#include "output/correlationtext.h"
#include "output/numbertext.h"
#include "settings/settings.h"
#include "support/datarows.h"
#include "support/difference.h"
#include "support/readerrecord.h"
#include "support/samplefile.h"
#include "support/testsettings.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

namespace {

void fill(CorrelationData& data, unsigned order, double value)
{
    data.allocate(order, order);
    std::fill_n(data.matrix()[0], order * order, value);
    data.setNames(VariableNames(order));
}

QByteArray written(const CorrelationData& data)
{
    std::ostringstream out;
    writeCorrelations(out, data.matrix(), data.names(), settings::precision());
    return QByteArray::fromStdString(out.str());
}

bool readBack(const QByteArray& bytes, CorrelationData& data)
{
    const SampleFile file("r.txt", bytes);
    ReaderRecord record;
    AsciiCorrReader reader(file.path(), nullptr);
    return reader.read() && data.allocate(reader.lineCount(), reader.lineCount()) &&
           reader.getData(data);
}

} // namespace

class TestCorrelationData : public QObject
{
    Q_OBJECT

private:
    TestSettings m_settings;

private slots:
    void asymmetry_data()
    {
        const DataRows<QByteArray, QString> row("bytes", "cell");
        const QString cell = "Not symmetric at row %1 and col %2";
        row("the first by rows", "1 .1 .2\n.1 1 .3\n.9 .9 1", cell.arg(1).arg(3));
        row("within the tolerance", "1 0.5\n0.50000000009 1", "");
        row("beyond the tolerance", "1 0.5\n0.50000000011 1", cell.arg(1).arg(2));
        row("a misread rectangle", "1 0.5 0.2\n0.5 1 0.3", cell.arg(2).arg(3));
    }

    void asymmetry()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, cell);
        CorrelationData data;
        QVERIFY(readBack(bytes, data));
        QCOMPARE(data.testSymmetry(), cell.isEmpty());
        QCOMPARE(data.asymmetry(), cell);
        // A NaN does not differ.
        data.matrix()[0][1] = std::numeric_limits<double>::quiet_NaN();
        QCOMPARE(data.testSymmetry(), data.rows() == 2 || cell.isEmpty());
    }

    void exportedText_data()
    {
        const DataRows<int, double, QByteArray> row("precision", "value", "text");
        row("one", 2, 1, "     1");
        row("no decimals", 0, 0.5, "   1");
        row("half rounded upwards", 2, -0.125, " -0.12");
        row("no minus zero", 2, -0.001, "     0");
        row("covariance", 2, 100.25, " 100.25");
        row("wider than its field", 1, -1234.5, " -1234.5");
        row("all digits before the point", 2, 12345678.9, " 12345678.9");
        row("six digits", 9, 0.1234567891, "     0.123457");
        row("small", 5, 0.00001, "  0.00001");
        row("smallest", 9, -0.000000001, " -0.000000001");
        row("negative precision", -1, 0.00002, "      0.00002");
    }

    void exportedText()
    {
        QFETCH(int, precision);
        QFETCH(double, value);
        QFETCH(QByteArray, text);
        m_settings.set(QStringLiteral("Precision"), precision);
        CorrelationData data;
        fill(data, 2, value);
        data.setNames(VariableNames::fromTexts({"Age", "Income"}));
        QCOMPARE(written(data),
                 (text + text + '\n').repeated(2) + "vname\t1\tAge\nvname\t2\tIncome\n");
    }

    void exportReadsBack()
    {
        constexpr int order = 40;
        QRandomGenerator random(1);
        for (int precision = 0; precision <= 9; ++precision) {
            m_settings.set(QStringLiteral("Precision"), precision);
            CorrelationData data;
            fill(data, order, 1.0);
            pelmora::Matrix& m = data.matrix();
            for (int i = 0; i < order; ++i)
                for (int j = 0; j < i; ++j)
                    m[i][j] = m[j][i] =
                        (random.generateDouble() * 2 - 1) * std::pow(10.0, 2 - random.bounded(12));
            // The triangles of computed correlations may differ by a last bit, here at a tie.
            m[0][1] = 0.375;
            m[1][0] = std::nextafter(0.375, 0.0);
            CorrelationData back;
            QVERIFY(readBack(written(data), back));
            QVERIFY(back.testSymmetry());
            for (int i = 0; i < order; ++i) {
                for (int j = 0; j < order; ++j) {
                    const double rounded =
                        numbertext::rounded(m[std::min(i, j)][std::max(i, j)], unsigned(precision));
                    // Six digits are written.
                    QCOMPARE(
                        difference(back.matrix()[i][j], rounded, 0.5000001e-5 * std::abs(rounded)),
                        QString());
                }
            }
        }
    }

    void namesReadBack()
    {
        const QStringList names = {"Gr\u00F6\u00DFe", "", "7", "  outer  ", "a\tb", "vname", "x\ny",
                                   "\u20AC \u0151"};
        const QStringList expected = {"Gr\u00F6\u00DFe", "",    "7",       "outer", "a\tb",
                                      "vname",           "x y", "\u20AC ?"};
        CorrelationData data;
        fill(data, 8, 1.0);
        data.setNames(VariableNames::fromTexts(names));
        CorrelationData back;
        QVERIFY(readBack("Some heading\n" + written(data) + "vname 9 beyond\n", back));
        QCOMPARE(back.names().texts(), expected);
    }
};

QTEST_MAIN(TestCorrelationData)
#include "tst_correlationdata.moc"
