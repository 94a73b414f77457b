// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "minimalpairs/minimalpairform.h"
#include "views/loadings.h"
#include "views/viewtest.h"
#include "views/widgets.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QTableWidget>

namespace {

const NamedMatrix loadings =
    loadingsOf({{0.90625, 0.125, -0.25}, {-0.5, 0.125, 0.125}, {0.875, 0.25, -0.125}},
               {"Weight", "%1 of all", "<b>Height</b>"});

/// The page of one focal factor of three variables and three factors.
struct Page : MinimalPairForm
{
    explicit Page(int focalFactor, bool shownAtOnce = true)
        : MinimalPairForm(MinimalPairFinder(loadings), focalFactor, nullptr)
    {
        setVisible(shownAtOnce);
    }

    QStringList table(int rank) const { return shown(findChildren<QTableWidget*>().at(rank)); }
    QStringList labels(const char* name) const
    {
        QStringList texts;
        for (const auto* label : findChildren<QLabel*>(name))
            texts << label->text();
        return texts;
    }
};

} // namespace

class TestMinimalPairForm : public ViewTest
{
    Q_OBJECT

private slots:
    void showsThePairsInOrderWithLoadingsAndDifferences()
    {
        const Page page(0);
        QCOMPARE(page.labels("labelPair"),
                 QStringList({"First minimal pair\nvar. Weight\nvar. %1 of all",
                              "Second minimal pair\nvar. %1 of all\nvar. <b>Height</b>",
                              "Third minimal pair\nvar. Weight\nvar. <b>Height</b>"}));
        // With a buddy an ampersand in a name would mark a shortcut.
        QVERIFY(!page.findChild<QLabel*>("labelPair")->buddy());
        QCOMPARE(page.labels("labelDifference"),
                 QStringList({"difference: 1.22", "difference: 1.19", "difference: -0.09"}));
        QCOMPARE(page.labels("labelCaption").first(),
                 "Difference between paired variables regarding focal factor minus averaged "
                 "differences regarding non focal factor");
        page.findChild<QTableWidget*>()->actions().first()->trigger(); // copies
        QVERIFY(QGuiApplication::clipboard()->text().startsWith(
            "\tWeight\t%1 of all\t| difference |\nFocal factor F1\t0.91\t-0.50\t1.41\n"));
        QCOMPARE(Page(1).table(0), QStringList({"|Weight|<b>Height</b>|| difference |",
                                                "Focal factor F2|0.13|0.25|0.13",
                                                "Non focal\nfactor F1|0.91|0.88|0.03",
                                                "Non focal\nfactor F3|-0.25|-0.12|0.13",
                                                "avg.|differ| :\n(non focal)|||0.08"}));
    }

    void namesFollowTheSessionAndNumbersThePrecisionOfTheStart()
    {
        for (const bool shownAtOnce : {true, false}) {
            m_settings.set("Precision", 4);
            Page page(0, shownAtOnce);
            m_settings.set("Precision", 3);
            page.on_variableNamesChanged({"a", "b", "c"});
            page.on_variableNamesChanged({"of", "another count"});
            page.show();
            page.hide();
            page.show();
            QCOMPARE(page.table(0).first(), "|a|b|| difference |");
            QVERIFY(page.table(0).value(1).endsWith("|1.4063"));
            QCOMPARE(page.labels("labelPair").value(2), "Third minimal pair\nvar. a\nvar. c");
            QCOMPARE(page.labels("labelDifference").size(), 3);
            QCOMPARE(page.labels("labelDifference").first(), "difference: 1.2188");
        }
    }

    void veryLongNamesLeaveThePageUsable()
    {
        Page page(0);
        const QString longName = "<b>" + QString(1000, u'w');
        page.on_variableNamesChanged({longName, QString(), longName});
        QVERIFY(page.findChild<QTableWidget*>()->columnWidth(0) < 450);
        const auto* label = page.findChild<QLabel*>("labelPair");
        QVERIFY(label->sizeHint().width() < 450);
        QVERIFY(label->toolTip().contains(longName.toHtmlEscaped()));
    }
};

QTEST_MAIN(TestMinimalPairForm)
#include "tst_minimalpairform.moc"
