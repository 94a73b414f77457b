// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/factormodel.h"
#include "views/loadings.h"

#include <QTest>

#include <cfloat>
#include <cmath>
#include <limits>

class tst_FactorModel : public QObject
{
    Q_OBJECT

private slots:
    void summariesSurroundTheLoadings()
    {
        factorModel model(loadingsOf({{0.5, -0.25}, {0.75, 0.125}, {0.0, 1.0}, {-1.0, 0.0}},
                                     {"a", "b", "c", "d"}),
                          2, nullptr);
        QCOMPARE(model.rowCount(), 5);
        QCOMPARE(model.columnCount(model.index(0, 0)), 3);
        const double expected[5][3] = {{100 * 3.890625 / 4, 100 * 1.8125 / 4, 100 * 1.078125 / 4},
                                       {0.3125, 0.5, -0.25},
                                       {0.578125, 0.75, 0.125},
                                       {1.0, 0.0, 1.0},
                                       {1.0, -1.0, 0.0}};
        // The sum of all squares is 2.890625; the corner is the total, not a mean.
        const double total = 100 * 2.890625 / 4;
        for (int row = 0; row < 5; ++row)
            for (int column = 0; column < 3; ++column) {
                const QVariant value = model.index(row, column).data();
                QCOMPARE(value.userType(), int(QMetaType::Double));
                QCOMPARE(value.toDouble(), row + column == 0 ? total : expected[row][column]);
            }
        QVERIFY(!model.index(1, 1).data(Qt::ToolTipRole).isValid());
        QVERIFY(!model.data(model.index(5, 0), Qt::DisplayRole).isValid());
    }

    void headersNameFactorsAndVariables()
    {
        factorModel model(loadingsOf({{1.0}, {0.5}}, {" Visual \t perception\u00A0test ", "b"}), 1,
                          nullptr);
        const auto header = [&model](int section, Qt::Orientation orientation) {
            return model.headerData(section, orientation, Qt::DisplayRole).toString();
        };
        QCOMPARE(header(0, Qt::Horizontal), "Communality");
        QCOMPARE(header(1, Qt::Horizontal), "Factor F1");
        QCOMPARE(header(0, Qt::Vertical), "Explained\nvariance:");
        QCOMPARE(header(1, Qt::Vertical), "Visual\nperception\ntest");
        QVERIFY(!model.headerData(1, Qt::Vertical, Qt::ToolTipRole).isValid());
        QVERIFY(!model.headerData(3, Qt::Vertical, Qt::DisplayRole).isValid());

        model.setVariableNames(VariableNames::fromTexts({"x y", "z"}));
        QCOMPARE(header(1, Qt::Vertical), "x\ny");
    }

    void maximaSkipWhatHasNoSize()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        const factorModel model(
            loadingsOf({{NAN, -0.5, 0.0}, {0.25, infinity, 0.0}, {0.0, 0.0, 0.0}}, {"", "", ""}), 3,
            nullptr);
        QCOMPARE(model.rowMaximum(0), 0.5);
        QCOMPARE(model.rowMaximum(1), 0.25);
        QCOMPARE(model.rowMaximum(2), DBL_MIN);
        QCOMPARE(model.columnMaximum(0), 0.25);
        QCOMPARE(model.columnMaximum(1), 0.5);
        QCOMPARE(model.columnMaximum(2), DBL_MIN);
        QVERIFY(std::isnan(model.value(1, 0)));
        QVERIFY(std::isinf(model.value(0, 2)));
        QVERIFY(std::isnan(model.value(0, 0)));
    }

    void onlyTheAskedFactorsAreTaken()
    {
        // A rotation of all factors works on a matrix with one more column.
        const factorModel model(loadingsOf({{0.5, 9.0}}, {"a"}), 1, nullptr);
        QCOMPARE(model.columnCount(), 2);
        QCOMPARE(model.value(1, 0), 0.25);
    }
};

QTEST_GUILESS_MAIN(tst_FactorModel)
#include "tst_factormodel.moc"
