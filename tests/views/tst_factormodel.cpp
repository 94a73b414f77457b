// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/factormodel.h"
#include "views/loadings.h"
#include "views/widgets.h"

#include <QSignalSpy>
#include <QTest>

#include <cfloat>
#include <cmath>

class TestFactorModel : public QObject
{
    Q_OBJECT

private slots:
    void summariesSurroundTheLoadings()
    {
        // A rotation of all factors works on a matrix with one more column.
        factorModel model(loadingsOf({{0.5, -0.25, 9}, {0.75, 0.125, 9}, {0, 1, 9}, {-1, 0, 9}},
                                     {" Visual \t perception\u00A0test ", "b", "c", "d"}),
                          2, nullptr);
        // The corner is the total, not a mean.
        QCOMPARE(shown(&model), QStringList({"|Communality|Factor F1|Factor F2",
                                             "Explained\nvariance:|72.265625|45.3125|26.953125",
                                             "Visual\nperception\ntest|0.3125|0.5|-0.25",
                                             "b|0.578125|0.75|0.125", "c|1|0|1", "d|1|-1|0"}));
        QVERIFY(!model.index(1, 1).data(Qt::ToolTipRole).isValid());
        QVERIFY(!model.headerData(1, Qt::Vertical, Qt::ToolTipRole).isValid());
        const QSignalSpy changed(&model, &QAbstractItemModel::headerDataChanged);
        model.setVariableNames(VariableNames::fromTexts({"x y", "z", "", ""}));
        QCOMPARE(changed.value(0).mid(1), QVariantList({1, 4}));
        QCOMPARE(shown(&model).value(3), "z|0.578125|0.75|0.125");
    }

    void maximaSkipWhatHasNoSize()
    {
        const factorModel model(
            loadingsOf({{NAN, -0.5, 0}, {0.25, INFINITY, 0}, {0, 0, 0}}, {"", "", ""}), 3, nullptr);
        const double ofRows[] = {0.5, 0.25, DBL_MIN};
        const double ofColumns[] = {0.25, 0.5, DBL_MIN};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(model.rowMaximum(i), ofRows[i]);
            QCOMPARE(model.columnMaximum(i), ofColumns[i]);
        }
        QVERIFY(std::isnan(model.value(1, 0)));
        QVERIFY(std::isinf(model.value(0, 2)));
    }
};

QTEST_GUILESS_MAIN(TestFactorModel)
#include "tst_factormodel.moc"
