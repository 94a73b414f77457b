// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/factorexport.h"
#include "views/loadings.h"

#include <QTest>

#include <cmath>
#include <sstream>

class tst_FactorExport : public QObject
{
    Q_OBJECT

private slots:
    void loadingsAreLaidOutInFields_data()
    {
        QTest::addColumn<unsigned>("decimals");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("2") << 2U
                           << QByteArray("    0.5   -0.12  |    0.27 | first variable\n"
                                         "   -1.5    0.29  |    2.33 | \xE4\n"
                                         "----------------------------\n"
                                         "    125    4.99  |  129.99\n");
        QTest::newRow("3") << 3U
                           << QByteArray("     0.5   -0.125  |    0.266 | first variable\n"
                                         "    -1.5     0.29  |    2.334 | \xE4\n"
                                         "-------------------------------\n"
                                         "     125    4.986  |  129.986\n");
    }
    void loadingsAreLaidOutInFields()
    {
        QFETCH(unsigned, decimals);
        const NamedMatrix loadings =
            loadingsOf({{0.5, -0.125}, {-1.5, 0.29}}, {"first variable", "\u00E4"});
        std::ostringstream out;
        writeLoadings(out, loadings, 2, decimals);
        QTEST(QByteArray::fromStdString(out.str()), "expected");
    }

    void badNumbersReadTheSameEverywhere()
    {
        const NamedMatrix loadings = loadingsOf({{-NAN}}, {"x"});
        std::ostringstream out;
        writeLoadings(out, loadings, 1, 1);
        QCOMPARE(out.str(), std::string("   nan  |    nan | x\n"
                                        "------------------\n"
                                        "   nan  |    nan\n"));
    }

    void scoresShareTheWidthOfTheLongest()
    {
        std::ostringstream out;
        writeScores(out, matrixOf({{0.5, -10.125}, {-0.001, INFINITY}}), 2);
        QCOMPARE(out.str(), std::string("   0.50 -10.12\n"
                                        "   0.00    inf\n"));
    }
};

QTEST_GUILESS_MAIN(tst_FactorExport)
#include "tst_factorexport.moc"
