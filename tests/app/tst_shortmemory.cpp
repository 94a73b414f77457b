// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "apptest.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>

#include <cstdlib>

namespace {

/// Counts down to the allocation that fails; negative: none does.
int allocationsBeforeFailure = -1;

} // namespace

// The linker sends our own calls of malloc() here, by these names.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size)
{
    const bool fails = allocationsBeforeFailure == 0;
    if (allocationsBeforeFailure >= 0)
        --allocationsBeforeFailure;
    return fails ? nullptr : __real_malloc(size);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

/// What the program says and keeps when its own allocations fail.
class TestShortMemory : public AppTest
{
    Q_OBJECT

private slots:
    void aMatrixWithoutRoomIsTold_data()
    {
        const DataRows<QString, QByteArray> row("action", "bytes");
        row("raw data", "actionDataASCII", fourCases);
        row("correlations", "actionCorrASCII", "1\n.3 1\n");
    }

    void aMatrixWithoutRoomIsTold()
    {
        QFETCH(QString, action);
        QFETCH(QByteArray, bytes);
        const SampleFile file("data.txt", bytes);
        const QString blocks = QStringLiteral("Error|allocation failure %1 in matrix()");
        const QString told = QStringLiteral("Error|Not enough memory for loading matrix.");
        QSet<QString> blocksTold;
        for (int successes = 0; blocksTold.size() < 2 && successes < 20; ++successes) {
            m_dialogs.takeRecord();
            m_dialogs.onDialog([&](QDialog* dialog) {
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file.path());
                allocationsBeforeFailure = successes;
                QMetaObject::invokeMethod(dialog, "accept");
            });
            trigger(action);
            allocationsBeforeFailure = -1;
            const QStringList boxes = m_dialogs.takeRecord().mid(1);
            if (boxes.value(1) == told && boxes.size() == 2) {
                blocksTold << boxes.first();
                QCOMPARE(sessions()->count(), 0);
            }
            while (sessions()->count() > 0)
                emit sessions()->tabCloseRequested(0);
        }
        QCOMPARE(blocksTold, QSet<QString>({blocks.arg(1), blocks.arg(2)}));
    }

    void theOrientationIsPutBack()
    {
        const SampleFile file("data.txt", fourCases);
        read("actionDataASCII", file.path());
        pages()->setCurrentIndex(0);
        m_dialogs.takeRecord();
        allocationsBeforeFailure = 0;
        find<QRadioButton>("radioButtonRowWise")->click();
        allocationsBeforeFailure = -1;
        QCOMPARE(m_dialogs.takeRecord().filter("allocation failure").size(), 1);
        QVERIFY(!session()->isRowWise());
        QVERIFY(find<QRadioButton>("radioButtonColumnWise")->isChecked());
        QCOMPARE(session()->variableNames().size(), 3);
        find<QRadioButton>("radioButtonRowWise")->click();
        QVERIFY(session()->isRowWise());
        QCOMPARE(session()->variableNames().size(), 4);
    }
};

QTEST_MAIN(TestShortMemory)
#include "tst_shortmemory.moc"
