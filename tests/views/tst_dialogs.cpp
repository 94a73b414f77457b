// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/dialogprecision.h"
#include "views/dialogvarnames.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void precisionTexts();
    void precisionIsBounded_data();
    void precisionIsBounded();
    void precisionEnds_data();
    void precisionEnds();
    void namesTexts();
    void namesComeBack();
    void missingAndSurplusNames();
    void aNameStaysOnOneLine();
    void aNameBeingTypedIsTaken();
};

void TestDialogs::precisionTexts()
{
    const DialogPrecision dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Please enter value"));
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("label"))->text(),
             QStringLiteral("Please enter precision :"));
    QCOMPARE(dialog.findChild<QSpinBox*>(QStringLiteral("spinBoxPrecision"))->suffix(),
             QStringLiteral(" decimals"));
    QCOMPARE(dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->standardButtons(),
             QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
}

void TestDialogs::precisionIsBounded_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("shown");
    QTest::newRow("zero") << 0 << 1;
    QTest::newRow("negative") << -1 << 1;
    QTest::newRow("smallest") << 1 << 1;
    QTest::newRow("largest") << 9 << 9;
    QTest::newRow("too large") << 12 << 9;
}

void TestDialogs::precisionIsBounded()
{
    QFETCH(int, stored);
    DialogPrecision dialog(nullptr);
    dialog.setPrecision(stored);
    QTEST(dialog.precision(), "shown");
}

void TestDialogs::precisionEnds_data()
{
    QTest::addColumn<QDialogButtonBox::StandardButton>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("ok") << QDialogButtonBox::Ok << int(QDialog::Accepted);
    QTest::newRow("cancel") << QDialogButtonBox::Cancel << int(QDialog::Rejected);
}

void TestDialogs::precisionEnds()
{
    QFETCH(QDialogButtonBox::StandardButton, button);
    DialogPrecision dialog(nullptr);
    dialog.setResult(-1);
    dialog.findChild<QDialogButtonBox*>()->button(button)->click();
    QTEST(dialog.result(), "result");
}

void TestDialogs::namesTexts()
{
    DialogVarNames dialog(nullptr);
    dialog.setRowCount(2);
    const auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("tableWidget"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Please enter names of variables"));
    QCOMPARE(table->columnCount(), 1);
    QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("Name of variable:"));
    QCOMPARE(table->model()->headerData(1, Qt::Vertical).toString(), QStringLiteral("2"));
}

void TestDialogs::namesComeBack()
{
    const QVector<QString> names = {QStringLiteral(" Height of box "), QString(),
                                    QStringLiteral("\u00e9\u0151"), QString(1000, u'x')};
    DialogVarNames dialog(nullptr);
    dialog.setRowCount(4);
    dialog.setNames(names);
    QCOMPARE(dialog.names(), names);
}

void TestDialogs::missingAndSurplusNames()
{
    DialogVarNames dialog(nullptr);
    dialog.setRowCount(2);
    dialog.setNames({QStringLiteral("a")});
    QCOMPARE(dialog.findChild<QTableWidget*>()->item(1, 0), nullptr);
    QCOMPARE(dialog.names(), (QVector<QString>{QStringLiteral("a"), QString()}));
    dialog.setNames({QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")});
    QCOMPARE(dialog.names(), (QVector<QString>{QStringLiteral("b"), QStringLiteral("c")}));
}

void TestDialogs::aNameStaysOnOneLine()
{
    DialogVarNames dialog(nullptr);
    dialog.setRowCount(2);
    const QString untouched = QStringLiteral("read\tso");
    dialog.setNames({QStringLiteral("a"), untouched});
    dialog.findChild<QTableWidget*>()->item(0, 0)->setText(
        QStringLiteral("a\tb\nc\rd\u2028e\u0085f"));
    QCOMPARE(dialog.names(), (QVector<QString>{QStringLiteral("a b c d e f"), untouched}));
}

void TestDialogs::aNameBeingTypedIsTaken()
{
    DialogVarNames dialog(nullptr);
    dialog.setRowCount(1);
    dialog.setNames({QStringLiteral("old")});
    dialog.show();
    auto* table = dialog.findChild<QTableWidget*>();
    table->setCurrentCell(0, 0);
    table->editItem(table->item(0, 0));
    auto* editor = table->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setText(QStringLiteral("new"));
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.names(), QVector<QString>{QStringLiteral("new")});
}

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
