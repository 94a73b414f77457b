// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/testsettings.h"
#include "views/loadings.h"
#include "views/numbertable.h"
#include "views/tablecopy.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QTableView>
#include <QTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

QString cell(const NumberTableModel& model, int row, int column)
{
    return model.index(row, column).data().toString();
}

} // namespace

class tst_NumberTable : public QObject
{
    Q_OBJECT

private:
    TestSettings m_settings;

private slots:
    void init() { m_settings.clear(); }

    void cellsKeepTheDecimalsOfTheFill()
    {
        const pelmora::Matrix values = matrixOf({{0.125, -0.125, -0.001}, {NAN, -NAN, -infinity}});
        NumberTableModel model;
        const QAbstractItemModelTester tester(&model);
        model.fill(values.rowPointers(), 2, 3);
        m_settings.set("Precision", 5);

        const QStringList expected = {"0.13", "-0.12", "0.00", "nan", "nan", "-inf"};
        for (int i = 0; i < 6; ++i)
            QCOMPARE(cell(model, i / 3, i % 3), expected[i]);
        QCOMPARE(model.index(0, 0).data(Qt::TextAlignmentRole).toInt(),
                 int(Qt::AlignRight | Qt::AlignVCenter));
        QVERIFY(!model.index(0, 0).data(Qt::CheckStateRole).isValid());

        model.fill(values.rowPointers(), 2, 3);
        QCOMPARE(cell(model, 0, 0), "0.12500");
        model.clear();
        QCOMPARE(model.rowCount(), 0);
    }

    void headersAreNumbersUntilTextsAreSet()
    {
        const pelmora::Matrix values = matrixOf({{1, 2}, {3, 4}});
        NumberTableModel model;
        model.fill(values.rowPointers(), 2, 2);
        model.setHeaders({}, [](int column) { return QStringLiteral("c%1").arg(column); });
        QCOMPARE(model.headerData(1, Qt::Vertical, Qt::DisplayRole).toString(), "2");
        QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "c1");
        QVERIFY(!model.headerData(2, Qt::Horizontal, Qt::ToolTipRole).isValid());
    }

    void columnsAreAsWideAsAfterLookingAtEveryCell()
    {
        constexpr int rows = 1500; // the view itself would stop at 1000
        constexpr int columns = 9;
        pelmora::Matrix values(rows, columns);
        std::mt19937 random(7);
        std::normal_distribution<double> normal;
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j < columns; ++j)
                values[i][j] = normal(random) * std::pow(10.0, j - 3);
        values[1400][0] = -12345678.9;
        values[1400][1] = 99.999;
        values[1400][2] = NAN;
        values[1400][3] = infinity;
        values[1400][4] = -infinity;
        NumberTableModel model;
        QTableView view;
        view.setModel(&model);
        model.setHeaders({}, [](int column) {
            return column == 8 ? QStringLiteral("a header\nof two wide lines") : QString();
        });
        model.fill(values.rowPointers(), rows, columns);

        fitColumnWidths(&view, model);
        QList<int> widths;
        for (int j = 0; j < columns; ++j)
            widths << view.columnWidth(j);

        view.horizontalHeader()->setResizeContentsPrecision(-1);
        view.resizeColumnsToContents();
        for (int j = 0; j < columns; ++j)
            QCOMPARE(widths[j], view.columnWidth(j));
    }

    void rowsGrowForLabelsOfSeveralLines()
    {
        const pelmora::Matrix values = matrixOf({{1}, {2}});
        NumberTableModel model;
        QTableView view;
        view.setModel(&model);
        model.fill(values.rowPointers(), 2, 1);
        model.setHeaders([](int row) { return row == 0 ? "one" : "one\ntwo\nthree\nfour"; }, {});
        const int ordinary = view.rowHeight(0);
        fitRowHeights(&view);
        QCOMPARE(view.rowHeight(0), ordinary);
        QVERIFY(view.rowHeight(1) >= 4 * view.fontMetrics().height());
    }

    void copyTakesEverythingOrTheSelection()
    {
        const pelmora::Matrix values = matrixOf({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
        NumberTableModel model;
        QTableView view;
        view.setModel(&model);
        model.fill(values.rowPointers(), 3, 3);
        model.setHeaders([](int row) { return row == 1 ? "two\twords\nhere" : "x"; },
                         [](int column) { return QString(QChar('A' + column)); });
        QCOMPARE(tableText(view), "\tA\tB\tC\n"
                                  "x\t1.00\t2.00\t3.00\n"
                                  "two words here\t4.00\t5.00\t6.00\n"
                                  "x\t7.00\t8.00\t9.00\n");

        const auto select = [&](int row, int column) {
            view.selectionModel()->select(model.index(row, column), QItemSelectionModel::Select);
        };
        select(0, 0);
        select(2, 2);
        QCOMPARE(tableText(view), "\tA\tC\nx\t1.00\t\nx\t\t9.00\n");
    }

    void copyIsReachedByKeyAndMenu()
    {
        const pelmora::Matrix values = matrixOf({{1}});
        NumberTableModel model;
        QTableView view;
        view.setModel(&model);
        model.fill(values.rowPointers(), 1, 1);
        installTableCopy(&view);
        QCOMPARE(view.contextMenuPolicy(), Qt::ActionsContextMenu);
        QCOMPARE(view.actions().value(0)->text(), "Copy");
        view.show();
        view.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        QTest::keyClick(&view, Qt::Key_Insert, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), "\t1\n1\t1.00\n");
    }

    void copyWithoutModelIsEmpty()
    {
        const QTableView view;
        QVERIFY(tableText(view).isEmpty());
    }
};

QTEST_MAIN(tst_NumberTable)
#include "tst_numbertable.moc"
