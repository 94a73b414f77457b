// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "apptest.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QStatusBar>

#include <clocale>

namespace {

/// Memory that the process has in use, in KiB; 0 where the system does not tell.
qint64 memoryInUse()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').value(1).toLongLong() * 4;
}

} // namespace

/// What the world may do to a running program: files that go away, settings that make no sense,
/// sessions that end at an awkward moment.
class TestFaults : public AppTest
{
    Q_OBJECT

private slots:
    void strangeInputFiles_data();
    void strangeInputFiles();
    void aFileThatVanishesAfterTheDialog();
    void everyExportSurvivesABadPlace();
    void anExportMayReplaceItsOwnInput();
    void aSessionMayEndUnderItsOwnDialog();
    void everyDialogMayBeEscaped();
    void nonsenseInEverySetting();
    void aCommaLocaleChangesNoNumber();
    void closedSessionsKeepOnlyTheirPages();

private:
    QList<QPushButton*> buttons(const QStringList& texts = {"Save", "Image"}) const
    {
        auto result = sessions()->findChildren<QPushButton*>();
        result.removeIf([&](auto* button) { return !texts.contains(button->text()); });
        return result;
    }
};

void TestFaults::strangeInputFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("status"); // empty: refused with a box
    const QString twoByTwo = QStringLiteral("Read data matrix, 2 rows and 2 cols");
    QTest::newRow("carriage returns only") << QByteArray("1 2\r3 5\r") << twoByTwo;
    QTest::newRow("NUL after the numbers") << QByteArray("1 2\0 x\n3 5\n", 11) << twoByTwo;
    QTest::newRow("byte-order mark") << QByteArray("\xef\xbb\xbf\n1 2\n3 5\n") << twoByTwo;
    QTest::newRow("one case") << QByteArray("1 2 3\n")
                              << QStringLiteral("Read data matrix, 1 rows and 3 cols");
    QTest::newRow("one number") << QByteArray("7")
                                << QStringLiteral("Read data matrix, 1 rows and 1 cols");
    QTest::newRow("only comments") << QByteArray("a, b\n1,2\n") << QString();
    QTest::newRow("only blanks") << QByteArray("  \n \t \n") << QString();
    QTest::newRow("a long line against short ones")
        << QByteArray("1 ").repeated(4 << 20) + "\n1 2\n"
        << QString();
    QByteArray junk;
    for (unsigned i = 0; i < 20000; ++i)
        junk += static_cast<char>(i * i * 31 + i / 7);
    QTest::newRow("junk") << junk << QString();
}

void TestFaults::strangeInputFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, status);
    const SampleFile file("strange.txt", bytes);
    read("actionDataASCII", file.path());
    QCOMPARE(m_window->statusBar()->currentMessage(), status);
    QCOMPARE(sessions()->count(), status.isEmpty() ? 0 : 1);
    if (status.isEmpty())
        QCOMPARE(m_dialogs.takeRecord().size(), 2);
}

void TestFaults::aFileThatVanishesAfterTheDialog()
{
    const SampleFile file("gone.txt", fourCases);
    m_dialogs.onDialog([&](QDialog* dialog) {
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file.path());
        connect(dialog, &QDialog::finished, this, [&] { QFile::remove(file.path()); });
        QMetaObject::invokeMethod(dialog, "accept");
    });
    trigger("actionDataASCII");
    QCOMPARE(m_dialogs.takeRecord().size(), 1);
    QCOMPARE(sessions()->count(), 0);
}

void TestFaults::everyExportSurvivesABadPlace()
{
    const SampleFile file("data.txt", fourCases);
    openSession(file.path());
    m_dialogs.takeRecord();
    QVERIFY(buttons().size() >= 14);
    // A full disk, a folder that is gone, a folder instead of a file, a file that nobody can write.
    for (const QString place :
         {"/dev/full", "/nowhere/at/all.txt", "/proc/self/fd", "/proc/version"}) {
        for (auto* button : buttons()) {
            // Not typed into the dialog, which would enter a folder instead of taking it.
            m_dialogs.onDialog([&](QDialog* dialog) {
                emit qobject_cast<QFileDialog*>(dialog)->fileSelected(place);
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(place);
                dialog->done(QDialog::Accepted);
            });
            button->click();
            const QStringList shown = m_dialogs.takeRecord();
            QVERIFY2(shown.size() == 2 && shown.last().startsWith("Error"),
                     qPrintable(button->objectName() + u' ' + shown.join(u'\n')));
        }
    }
    QCOMPARE(sessions()->count(), 1);
}

void TestFaults::anExportMayReplaceItsOwnInput()
{
    const SampleFile file("data.txt", fourCases);
    openSession(file.path());
    pages()->setCurrentIndex(0);
    m_dialogs.chooseFile(file.path());
    find<QPushButton>("pushButtonSave")->click();
    read("actionDataASCII", file.path());
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("Read data matrix, 4 rows and 3 cols"));
}

void TestFaults::aSessionMayEndUnderItsOwnDialog()
{
    const SampleFile file("data.txt", fourCases);
    openSession(file.path());
    const int count = buttons().size();
    for (int i = 0; i < count; ++i) {
        if (sessions()->count() == 0)
            openSession(file.path());
        auto* button = buttons().value(buttons().size() - count + i);
        m_dialogs.onDialog([&](QDialog* dialog) {
            emit sessions()->tabCloseRequested(0);
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file.folder() + "/out");
            QMetaObject::invokeMethod(dialog, "accept");
        });
        button->click();
        QCOMPARE(sessions()->count(), 0);
    }
}

void TestFaults::everyDialogMayBeEscaped()
{
    const SampleFile file("data.txt", fourCases);
    openSession(file.path());
    m_dialogs.takeRecord();
    for (auto* button : buttons({"Save", "Image", "Edit names of variables"})) {
        m_dialogs.onDialog([](QDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
        button->click();
        QCOMPARE(m_dialogs.takeRecord().size(), 1);
    }
    m_dialogs.onDialog([](QDialog* dialog) { dialog->close(); });
    trigger("actionPrecision");
    QVERIFY(!m_settings.has(QStringLiteral("Precision")));
}

void TestFaults::nonsenseInEverySetting()
{
    for (const char* key :
         {"Precision", "ShowSplash", "OpenFolderAfterClosing", "Input/LastDataASCIILocation",
          "Input/LastCorrASCIILocation", "Zarnel/edge.x", "Zarnel/edge.y",
          "Zarnel/textCircleOffset", "Zarnel/circel"})
        m_settings.set(QLatin1String(key), QStringLiteral("\u00a7 no, such@thing \n"));
    m_window = std::make_unique<MainWindow>(nullptr);
    m_window->show();
    const SampleFile file("data.txt", fourCases);
    openSession(file.path());
    for (int i = 0; i < pages()->count(); ++i)
        QVERIFY(!pages()->widget(i)->grab().isNull());

    for (const char* key : {"Zarnel/edge.x", "Zarnel/edge.y", "Zarnel/textCircleOffset"})
        m_settings.set(QLatin1String(key), -2147483647);
    find<QPushButton>("processButton")->click();
    QVERIFY(!pages()->widget(pages()->count() - 1)->grab().isNull());
}

void TestFaults::aCommaLocaleChangesNoNumber()
{
    const QByteArray before = std::setlocale(LC_ALL, nullptr);
    const char* comma = std::setlocale(LC_ALL, "de_DE.UTF-8");
    if (!comma)
        QSKIP("no locale with a decimal comma on this machine");
    const SampleFile file("data.txt", "1.5 2\n2 1.25\n3 5\n");
    read("actionDataASCII", file.path());
    pages()->setCurrentIndex(0);
    const QByteArray text = saved("pushButtonSave");
    std::setlocale(LC_ALL, before.constData());
    QVERIFY(text.startsWith("1.5\t2\n2\t1.25\n"));
}

/// A closed tab's widgets stay until the window goes; the numbers behind them must not.
void TestFaults::closedSessionsKeepOnlyTheirPages()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the address sanitizer keeps freed memory for a while");
#endif
    QByteArray text; // of a matrix of 3.2 MB
    for (int i = 0; i < 400000; ++i)
        text += QByteArray::number(i * 7919L % 99991 % 1000) + (i % 20 < 19 ? ' ' : '\n');
    const SampleFile file("data.txt", text);
    constexpr int warmUp = 4;
    constexpr int sessionCount = 16;
    qint64 warm = 0;
    for (int i = 0; i < sessionCount; ++i) {
        read("actionDataASCII", file.path());
        emit sessions()->tabCloseRequested(0);
        if (i + 1 == warmUp)
            warm = memoryInUse();
    }
    const qint64 growth = (memoryInUse() - warm) / (sessionCount - warmUp);
    qInfo("%lld KiB stay of every closed session", static_cast<long long>(growth));
    QVERIFY(growth < 1024);
}

QTEST_MAIN(TestFaults)
#include "tst_faults.moc"
