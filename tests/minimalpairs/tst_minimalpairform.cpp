// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "minimalpairs/minimalpairfinder.h"
#include "minimalpairs/minimalpairform.h"
#include "support/testsettings.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QTableWidget>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

NamedMatrix threeVariables(double lastLoading)
{
    NamedMatrix loadings{
        pelmora::Matrix(3, 3),
        VariableNames::fromTexts({QStringLiteral("Weight"), QStringLiteral("%1 of all"),
                                  QStringLiteral("<b>Height</b>")})};
    const double values[3][3] = {
        {0.90625, 0.125, -0.25}, {-0.5, 0.125, 0.125}, {0.875, 0.25, lastLoading}};
    for (int i = 0; i < 3; ++i)
        std::copy_n(values[i], 3, loadings.values[i]);
    return loadings;
}

QString cell(const QTableWidget* table, int row, int column)
{
    const auto* item = table->item(row, column);
    return item ? item->text() : QString();
}

QStringList rowHeaders(const QTableWidget* table)
{
    QStringList texts;
    for (int row = 0; row < table->rowCount(); ++row)
        texts << table->verticalHeaderItem(row)->text();
    return texts;
}

} // namespace

class TestMinimalPairForm : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void showsThePairsInOrder();
    void showsLoadingsAndDifferences();
    void numbersFollowThePrecision();
    void namesFollowTheSession();
    void aPageShownLateIsAsOneShownAtOnce();
    void aSingleFactorHasNoOthers();
    void whatIsNotANumberIsShown();
    void tablesCanBeCopied();
    void veryLongNamesLeaveThePageUsable();

private:
    std::unique_ptr<MinimalPairForm> page(int focalFactor, double lastLoading = -0.125) const
    {
        auto form = std::make_unique<MinimalPairForm>(
            MinimalPairFinder(threeVariables(lastLoading)), focalFactor, nullptr);
        form->show();
        return form;
    }

    TestSettings m_settings;
};

void TestMinimalPairForm::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("No matching signal")));
}

void TestMinimalPairForm::init()
{
    m_settings.clear();
}

void TestMinimalPairForm::showsThePairsInOrder()
{
    const auto form = page(0);
    QStringList pairs;
    QStringList differences;
    for (const auto* label : form->findChildren<QLabel*>(QStringLiteral("labelPair")))
        pairs << label->text();
    for (const auto* label : form->findChildren<QLabel*>(QStringLiteral("labelDifference")))
        differences << label->text();
    QCOMPARE(pairs,
             (QStringList{QStringLiteral("First minimal pair\nvar. Weight\nvar. %1 of all"),
                          QStringLiteral("Second minimal pair\nvar. %1 of all\nvar. <b>Height</b>"),
                          QStringLiteral("Third minimal pair\nvar. Weight\nvar. <b>Height</b>")}));
    QCOMPARE(differences,
             (QStringList{QStringLiteral("difference: 1.22"), QStringLiteral("difference: 1.19"),
                          QStringLiteral("difference: -0.09")}));
    QCOMPARE(
        form->findChild<QLabel*>(QStringLiteral("labelCaption"))->text(),
        QStringLiteral("Difference between paired variables regarding focal factor minus averaged "
                       "differences regarding non focal factor"));
}

void TestMinimalPairForm::showsLoadingsAndDifferences()
{
    const auto form = page(1);
    const auto* table = form->findChild<QTableWidget*>();
    QCOMPARE(rowHeaders(table),
             (QStringList{QStringLiteral("Focal factor F2"), QStringLiteral("Non focal\nfactor F1"),
                          QStringLiteral("Non focal\nfactor F3"),
                          QStringLiteral("avg.|differ| :\n(non focal)")}));
    QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("Weight"));
    QCOMPARE(table->horizontalHeaderItem(1)->text(), QStringLiteral("<b>Height</b>"));
    QCOMPARE(table->horizontalHeaderItem(2)->text(), QStringLiteral("| difference |"));
    const QStringList expected[] = {
        {QStringLiteral("0.13"), QStringLiteral("0.25"), QStringLiteral("0.13")},
        {QStringLiteral("0.91"), QStringLiteral("0.88"), QStringLiteral("0.03")},
        {QStringLiteral("-0.25"), QStringLiteral("-0.12"), QStringLiteral("0.13")},
        {QString(), QString(), QStringLiteral("0.08")}};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 3; ++column)
            QCOMPARE(cell(table, row, column), expected[row][column]);
}

void TestMinimalPairForm::numbersFollowThePrecision()
{
    m_settings.set(QStringLiteral("Precision"), 4);
    const auto form = page(0);
    QCOMPARE(cell(form->findChild<QTableWidget*>(), 0, 2), QStringLiteral("1.4063"));
    QCOMPARE(form->findChild<QLabel*>(QStringLiteral("labelDifference"))->text(),
             QStringLiteral("difference: 1.2188"));
}

void TestMinimalPairForm::namesFollowTheSession()
{
    const auto form = page(0);
    const auto* table = form->findChild<QTableWidget*>();
    form->on_variableNamesChanged({QStringLiteral("a"), QStringLiteral("b")});
    QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("Weight"));
    form->on_variableNamesChanged({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("a"));
    QCOMPARE(form->findChildren<QLabel*>(QStringLiteral("labelPair")).last()->text(),
             QStringLiteral("Third minimal pair\nvar. a\nvar. c"));
}

void TestMinimalPairForm::aPageShownLateIsAsOneShownAtOnce()
{
    MinimalPairForm form(MinimalPairFinder(threeVariables(-0.125)), 0, nullptr);
    m_settings.set(QStringLiteral("Precision"), 4);
    form.on_variableNamesChanged({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    form.show();
    form.hide();
    form.show();
    const auto tables = form.findChildren<QTableWidget*>();
    QCOMPARE(tables.size(), 3);
    QCOMPARE(tables.first()->horizontalHeaderItem(0)->text(), QStringLiteral("a"));
    QCOMPARE(cell(tables.first(), 0, 2), QStringLiteral("1.41"));
}

void TestMinimalPairForm::aSingleFactorHasNoOthers()
{
    NamedMatrix loadings{pelmora::Matrix(2, 1), VariableNames(2)};
    loadings.values[0][0] = 0.5;
    loadings.values[1][0] = -0.5;
    MinimalPairForm form(MinimalPairFinder(loadings), 0, nullptr);
    form.show();
    const auto tables = form.findChildren<QTableWidget*>();
    QCOMPARE(tables.size(), 1);
    QCOMPARE(tables.first()->rowCount(), 2);
    QCOMPARE(cell(tables.first(), 1, 2), QStringLiteral("0.00"));
    QCOMPARE(form.findChild<QLabel*>(QStringLiteral("labelDifference"))->text(),
             QStringLiteral("difference: 1.00"));
}

void TestMinimalPairForm::whatIsNotANumberIsShown()
{
    const auto form = page(0, std::numeric_limits<double>::quiet_NaN());
    const auto tables = form->findChildren<QTableWidget*>();
    QCOMPARE(tables.size(), 3);
    QCOMPARE(cell(tables[0], 2, 2), QStringLiteral("0.38"));
    QCOMPARE(cell(tables[1], 2, 2), QStringLiteral("nan"));
    QCOMPARE(form->findChildren<QLabel*>(QStringLiteral("labelDifference")).last()->text(),
             QStringLiteral("difference: nan"));
}

void TestMinimalPairForm::tablesCanBeCopied()
{
    const auto form = page(0);
    form->findChild<QTableWidget*>()->actions().first()->trigger();
    QVERIFY(QGuiApplication::clipboard()->text().startsWith(
        QStringLiteral("\tWeight\t%1 of all\t| difference |\nFocal factor F1\t0.91\t-0.50\t1.41\n"
                       "Non focal factor F2\t0.13\t0.13\t0.00\n")));
}

void TestMinimalPairForm::veryLongNamesLeaveThePageUsable()
{
    const auto form = page(0);
    const QString longName(1000, u'w');
    form->on_variableNamesChanged({longName, QString(), longName});
    form->resize(900, 600);
    form->show();
    QVERIFY(form->findChild<QTableWidget*>()->width() < 900);
    QVERIFY(form->findChild<QLabel*>(QStringLiteral("labelPair"))->width() < 450);
}

QTEST_MAIN(TestMinimalPairForm)
#include "tst_minimalpairform.moc"
