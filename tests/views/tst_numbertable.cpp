// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/loadings.h"
#include "views/numbertable.h"
#include "views/viewtest.h"
#include "views/widgets.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QSignalSpy>

#include <cmath>

namespace {

/// A view of numbers with the column headers "A", "B", ... and given row headers.
struct Table
{
    explicit Table(pelmora::Matrix numbers, const QStringList& labels = {})
        : values(std::move(numbers))
    {
        view.setModel(&model);
        model.setHeaders([labels](int row) { return labels.value(row, "x"); },
                         [](int column) { return QString(QChar('A' + column)); });
        fill();
    }
    void fill() { model.fill(values); }

    pelmora::Matrix values;
    NumberTableModel model;
    QTableView view;
};

} // namespace

class TestNumberTable : public ViewTest
{
    Q_OBJECT

private slots:
    void cellsKeepTheDecimalsOfTheFill()
    {
        Table table(matrixOf({{0.125, -0.125, -0.001}, {NAN, -NAN, -INFINITY}}));
        const QAbstractItemModelTester tester(&table.model);
        m_settings.set("Precision", 5);
        QCOMPARE(shown(&table.view),
                 QStringList({"|A|B|C", "x|0.13|-0.12|0.00", "x|nan|nan|-inf"}));
        const QModelIndex first = table.model.index(0, 0);
        QCOMPARE(first.data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
        QVERIFY(!first.data(Qt::CheckStateRole).isValid());
        QVERIFY(!table.model.headerData(0, Qt::Vertical, Qt::ToolTipRole).isValid());
        table.fill();
        const QSignalSpy changed(&table.model, &QAbstractItemModel::headerDataChanged);
        table.model.setHeaders({}, {});
        QCOMPARE(changed.value(0).mid(1), QVariantList({0, 1})); // rows
        QCOMPARE(changed.value(1).mid(1), QVariantList({0, 2}));
        QCOMPARE(shown(&table.view).value(1), "1|0.12500|-0.12500|-0.00100");
        table.model.clear();
        QCOMPARE(shown(&table.view), QStringList(""));
    }

    void columnsAreAsWideAsAfterLookingAtEveryCell()
    {
        m_settings.set("Precision", 1);
        constexpr int rows = 1500; // the view itself would stop at 1000
        constexpr int columns = 9;
        pelmora::Matrix values(rows, columns);
        // Numbers of every length and sign; the first columns hold one word each among zeros.
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j < columns; ++j)
                values[i][j] = j < 3 ? 0.0 : (i * 7919 % 2001 - 1000) * std::pow(10.0, j - 6);
        const double special[] = {NAN, INFINITY, -INFINITY, -12345678.9, 99.99};
        std::copy(std::begin(special), std::end(special), values[1400]);
        Table table(std::move(values));
        table.model.setHeaders({}, [](int column) {
            return column == 8 ? QString("a header\nof two wide lines") : QString();
        });

        // Else a short word would be no wider than the narrowest column.
        table.view.horizontalHeader()->setMinimumSectionSize(1);
        const auto widths = [&view = table.view] {
            QList<int> all;
            for (int column = 0; column < columns; ++column)
                all << view.columnWidth(column);
            return all;
        };
        fitColumnWidths(&table.view, table.model);
        const QList<int> fitted = widths();
        table.view.horizontalHeader()->setResizeContentsPrecision(-1);
        table.view.resizeColumnsToContents();
        QCOMPARE(fitted, widths());
    }
};

QTEST_MAIN(TestNumberTable)
#include "tst_numbertable.moc"
