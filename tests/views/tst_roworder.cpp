// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/diagramview.h"
#include "views/factormodel.h"
#include "views/loadings.h"
#include "views/roworder.h"
#include "views/tablecopy.h"
#include "views/widgets.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QTest>

#include <cmath>

namespace {

QVector<int> shownOrder(const QTableView& view)
{
    QVector<int> rows;
    for (int i = 0; i < view.verticalHeader()->count(); ++i)
        rows << view.verticalHeader()->logicalIndex(i);
    return rows;
}

} // namespace

class TestRowOrder : public QObject
{
    Q_OBJECT

private slots:
    void largestLoadingsComeFirst()
    {
        const factorModel model(loadingsOf({{0.1, -0.5, 0.2},
                                            {NAN, NAN, NAN},
                                            {0.3, 0.3, 0.3},
                                            {0.9, 0.1, 0.1},
                                            {0.1, 0.2, -INFINITY},
                                            {NAN, -0.7, 0.1},
                                            {0.1, 0.5, 0.2},
                                            {0.0, 0.0, 0.0},
                                            {-0.8, 0.1, 0.1}},
                                           QVector<QString>(9)),
                                3, nullptr);
        using Order = std::vector<int>;
        QCOMPARE(variablesByFactor(model, 0), Order({3, 8, 2, 7, 5, 0, 6, 4, 1}));
        QCOMPARE(variablesByFactor(model, 1), Order({5, 0, 6, 2, 7, 3, 8, 4, 1}));
        QCOMPARE(variablesByFactor(model, 2), Order({4, 2, 7, 3, 8, 5, 0, 6, 1}));
    }

    void theViewAloneIsOrderedAndPutBack()
    {
        factorModel model(loadingsOf({{0.1, 0.5}, {0.9, 0.1}, {0.2, 0.8}}, {"a", "b", "c"}), 2,
                          nullptr);
        QTableView view;
        setUpDiagramView(&view, &model);
        installRowOrder(&view);
        QAction* byFactor = view.actions().at(0);
        QAction* original = view.actions().at(1);
        QCOMPARE(byFactor->text(), "Order rows by this factor");
        QCOMPARE(original->text(), "Original order");
        const QStringList before = shown(&view);
        const QString copied = tabSeparatedTable(copiedGrid(view, CopiedDigits::All));
        const QImage image = diagramImage(&model);

        byFactor->trigger(); // no column was pointed at
        QCOMPARE(shownOrder(view), QVector<int>({0, 1, 2, 3}));
        const auto openMenuAt = [&](QContextMenuEvent::Reason reason, int column) {
            const QPoint place(view.columnViewportPosition(column) + 1, 1);
            QContextMenuEvent event(reason, place, view.viewport()->mapToGlobal(place));
            QCoreApplication::sendEvent(
                reason == QContextMenuEvent::Mouse ? view.viewport() : &view, &event);
        };
        openMenuAt(QContextMenuEvent::Mouse, 0);
        QVERIFY(!byFactor->isEnabled());
        QVERIFY(!original->isEnabled());
        openMenuAt(QContextMenuEvent::Mouse, 2);
        byFactor->trigger();
        QCOMPARE(shownOrder(view), QVector<int>({0, 3, 1, 2}));
        view.setCurrentIndex(model.index(2, 1));
        openMenuAt(QContextMenuEvent::Keyboard, 2);
        QVERIFY(original->isEnabled());
        byFactor->trigger();
        QCOMPARE(shownOrder(view), QVector<int>({0, 2, 3, 1}));
        QCOMPARE(shown(&view), before);
        QCOMPARE(diagramImage(&model), image);
        view.selectAll();
        QCOMPARE(tabSeparatedTable(copiedGrid(view, CopiedDigits::All)), copied);
        original->trigger();
        QCOMPARE(shownOrder(view), QVector<int>({0, 1, 2, 3}));
    }
};

QTEST_MAIN(TestRowOrder)
#include "tst_roworder.moc"
