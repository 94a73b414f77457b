// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/dialogprecision.h"
#include "views/dialogvarnames.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
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
    void precisionIsAskedWithinItsBounds()
    {
        DialogPrecision dialog(nullptr);
        QCOMPARE(dialog.windowTitle(), "Please enter value");
        QCOMPARE(dialog.findChild<QLabel*>("label")->text(), "Please enter precision :");
        QCOMPARE(dialog.findChild<QSpinBox*>("spinBoxPrecision")->suffix(), " decimals");
        const auto bounded = [&dialog](int precision) {
            dialog.setPrecision(precision);
            return dialog.precision();
        };
        QCOMPARE(bounded(0), 1);
        QCOMPARE(bounded(1), 1);
        QCOMPARE(bounded(9), 9);
        QCOMPARE(bounded(12), 9);
        const auto* buttons = dialog.findChild<QDialogButtonBox*>();
        buttons->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        buttons->button(QDialogButtonBox::Cancel)->click();
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }

    void editedNamesComeBackOnOneLine()
    {
        DialogVarNames dialog(nullptr);
        dialog.setRowCount(3);
        dialog.setNames({" read\tso ", "old"});
        dialog.findChild<QTableWidget*>()->item(1, 0)->setText(
            " \u00e9\tb\nc\rd\u2028e\u2029f\u0085g ");
        QCOMPARE(dialog.names(), QVector<QString>({" read\tso ", " \u00e9 b c d e f g ", ""}));
        dialog.setNames({"b", "", "c", "surplus"});
        QCOMPARE(dialog.names(), QVector<QString>({"b", "", "c"}));
    }

    void namesArePastedFromTheCurrentRowOn()
    {
        DialogVarNames dialog(nullptr);
        dialog.setRowCount(4);
        dialog.setNames({"kept", "old", "old", "kept"});
        auto* table = dialog.findChild<QTableWidget*>();
        table->setCurrentCell(1, 0);
        QGuiApplication::clipboard()->setText("b\tanother column\n c\r\n");
        table->actions().first()->trigger();
        QCOMPARE(dialog.names(), QVector<QString>({"kept", "b", "c", "kept"}));
        QGuiApplication::clipboard()->setText("1\n2\n3\n4\n5");
        table->actions().first()->trigger();
        QCOMPARE(dialog.names(), QVector<QString>({"kept", "1", "2", "3"}));
    }

    void aNameBeingTypedIsTaken()
    {
        DialogVarNames dialog(nullptr);
        dialog.setRowCount(1);
        dialog.setNames({"old"});
        dialog.show();
        auto* table = dialog.findChild<QTableWidget*>();
        table->setCurrentCell(0, 0);
        table->editItem(table->item(0, 0));
        table->findChild<QLineEdit*>()->setText("new");
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.names(), QVector<QString>{"new"});
    }
};

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
