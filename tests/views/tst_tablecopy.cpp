// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/factormodel.h"
#include "views/loadings.h"
#include "views/numbertable.h"
#include "views/tablecopy.h"
#include "views/viewtest.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QTimer>
#include <QWindow>

#include <cmath>

namespace {

struct Table
{
    Table()
    {
        view.setModel(&model);
        const QStringList labels = {"x", "two\twords\nhere", "x"};
        model.setHeaders([labels](int row) { return labels.value(row); },
                         [](int column) { return QString(QChar('A' + column)); });
        model.fill(values);
        installTableCopy(&view);
    }

    QString copied(const char* way) const
    {
        QGuiApplication::clipboard()->clear();
        for (QAction* action : view.actions())
            if (action->text() == way)
                action->trigger();
        return QGuiApplication::clipboard()->text();
    }

    pelmora::Matrix values = matrixOf({{1, -0.125, 1e-7}, {4, NAN, 6}, {7, 0.1, 9}});
    NumberTableModel model;
    QTableView view;
};

} // namespace

class TestTableCopy : public ViewTest
{
    Q_OBJECT

private slots:
    void everyWayTakesEverythingOrTheSelection()
    {
        const Table table;
        QCOMPARE(table.copied("Copy"), "\tA\tB\tC\n"
                                       "x\t1.00\t-0.12\t0.00\n"
                                       "two words here\t4.00\tnan\t6.00\n"
                                       "x\t7.00\t0.10\t9.00\n");
        QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasHtml());
        // All digits are those of the numbers, not of their texts.
        QCOMPARE(table.copied("Copy with all digits"), "\tA\tB\tC\n"
                                                       "x\t1\t-0.125\t0.0000001\n"
                                                       "two words here\t4\tnan\t6\n"
                                                       "x\t7\t0.1\t9\n");
        for (int i : {0, 2})
            table.view.selectionModel()->select(table.model.index(i, i),
                                                QItemSelectionModel::Select);
        QCOMPARE(table.copied("Copy"), "\tA\tC\nx\t1.00\t\nx\t\t9.00\n");
        QCOMPARE(table.copied("Copy with all digits"), "\tA\tC\nx\t1\t\nx\t\t9\n");
        QCOMPARE(table.copied("Copy as document table"), "\tA\tC\nx\t1.00\t\nx\t\t9.00\n");
        QVERIFY(QGuiApplication::clipboard()->mimeData()->html().contains(">9.00<"));
        QVERIFY(table.copied("Copy as Markdown").contains("| x | 1.00 |  |\n"));
        QVERIFY(table.copied("Copy as LaTeX").contains("x &  & 9.00 \\\\\n"));
        QVERIFY(copiedGrid(QTableView(), CopiedDigits::AsShown).rowHeadings.isEmpty());
    }

    void aDiagramGivesItsSummariesToo()
    {
        factorModel model(loadingsOf({{0.5, -1.0 / 3}}, {"two words"}), 2, nullptr);
        QTableView view;
        view.setModel(&model);
        m_settings.set("Precision", 3);
        QCOMPARE(tabSeparatedTable(copiedGrid(view, CopiedDigits::AsShown)),
                 "\tCommunality\tFactor F1\tFactor F2\n"
                 "Explained variance:\t36.111\t25.000\t11.111\n"
                 "two words\t0.361\t0.500\t-0.333\n");
        const QString exact = tabSeparatedTable(copiedGrid(view, CopiedDigits::All));
        QVERIFY2(exact.endsWith("\t0.5\t-0.3333333333333333\n"), qPrintable(exact));
    }

    void theKeyCopiesAndTheRightButtonSelectsNothing()
    {
        Table table;
        QCOMPARE(table.view.actions().value(0)->text(), "Copy");
        table.view.show();
        table.view.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&table.view));
        QTest::keyClick(&table.view, Qt::Key_Insert, Qt::ControlModifier);
        QVERIFY(QGuiApplication::clipboard()->text().startsWith("\tA\tB\tC\nx\t1.00"));
        QWidget* viewport = table.view.viewport();
        const auto middleOf = [&](int row, int column) {
            return table.view.visualRect(table.model.index(row, column)).center();
        };
        QTest::mouseClick(viewport, Qt::RightButton, {}, middleOf(1, 1));
        QVERIFY(table.view.selectionModel()->selection().isEmpty());
        QTest::mouseClick(viewport, Qt::LeftButton, {}, middleOf(0, 0));
        QTest::mouseClick(viewport, Qt::RightButton, {}, middleOf(2, 2));
        QTest::mouseDClick(viewport, Qt::RightButton, {}, middleOf(2, 2));
        QCOMPARE(table.view.selectionModel()->selectedIndexes(),
                 QModelIndexList({table.model.index(0, 0)}));

        QStringList entries;
        QTimer menuWatcher;
        connect(&menuWatcher, &QTimer::timeout, [&entries] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                for (const QAction* action : menu->actions())
                    entries << action->text();
                menu->close();
            }
        });
        menuWatcher.start(0);
        // Through the window, which asks for the menu.
        QTest::mouseClick(table.view.windowHandle(), Qt::RightButton, {},
                          viewport->mapTo(&table.view, middleOf(1, 1)));
        QCOMPARE(entries, QStringList({"Copy", "Copy with all digits", "Copy as document table",
                                       "Copy as Markdown", "Copy as LaTeX"}));
    }
};

QTEST_MAIN(TestTableCopy)
#include "tst_tablecopy.moc"
