// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "apptest.h"
#include "input/readerreport.h"
#include "support/fullfiles.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QStatusBar>
#include <QTextDocumentFragment>

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

private:
    QList<QPushButton*> buttons(const QStringList& texts = {"Save", "Save transposed…",
                                                            "Image"}) const
    {
        auto result = sessions()->findChildren<QPushButton*>();
        result.removeIf([&](auto* button) { return !texts.contains(button->text()); });
        return result;
    }

private slots:
    void strangeInputFiles_data()
    {
        // Without a status: refused with a box.
        const DataRows<QByteArray, QString> row("bytes", "status");
        const QString twoByTwo = QStringLiteral("Read data matrix, 2 rows and 2 cols");
        row("carriage returns only", "1 2\r3 5\r", twoByTwo);
        row("NUL after the numbers", QByteArray("1 2\0 x\n3 5\n", 11), twoByTwo);
        row("byte-order mark", "\xef\xbb\xbf\n1 2\n3 5\n", twoByTwo);
        row("one case", "1 2 3\n", "Read data matrix, 1 rows and 3 cols");
        row("one number", "7", "Read data matrix, 1 rows and 1 cols");
        row("only comments", "a, b\n1,2\n", "");
        row("only blanks", "  \n \t \n", "");
        row("a long line against short ones", QByteArray("1 ").repeated(4 << 20) + "\n1 2\n", "");
        QByteArray junk;
        for (unsigned i = 0; i < 20000; ++i)
            junk += static_cast<char>(i * i * 31 + i / 7);
        row("junk", junk, "");
    }

    void strangeInputFiles()
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

    void aFileThatVanishesAfterTheDialog()
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

    void everyExportSurvivesABadPlace()
    {
        const SampleFile file("data.txt", fourCases);
        openSession(file.path());
        m_dialogs.takeRecord();
        QVERIFY(buttons().size() >= 14);
        // A full disk, a folder that is gone, a folder instead of a file, a file that nobody can
        // write.
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
                QVERIFY2(shown.size() == 2 && shown.last().startsWith("Error") &&
                             shown.last().contains(place + ": "),
                         qPrintable(button->objectName() + u' ' + shown.join(u'\n')));
            }
        }
        QCOMPARE(sessions()->count(), 1);
    }

    void anExportThatFailsLeavesTheOldFile()
    {
        const SampleFile data("data.txt", fourCases);
        openSession(data.path());
        const SampleFile old("old", "old");
        for (auto* button : buttons()) {
            m_dialogs.takeRecord();
            m_dialogs.chooseFile(old.path());
            const FullFiles limit(10);
            button->click();
            const QString box = m_dialogs.takeRecord().last();
            QVERIFY2(box.endsWith(old.path() + ": File too large"), qPrintable(box));
            QCOMPARE(contentsOf(old.path()), "old");
        }
        QCOMPARE(QDir(old.folder()).entryList(QDir::Files | QDir::Hidden), QStringList("old"));
    }

    void everyExportAsksBeforeItReplacesItsInput_data()
    {
        const DataRows<QString, QByteArray, QString> row("action", "bytes", "firstPage");
        const QString decimals = QStringLiteral("The new file would have no more decimals than 3.");
        row("raw data", "actionDataASCII", fourCases,
            "All decimals stay, but comments and other lines would be lost.");
        row("correlations", "actionCorrASCII", "1\n.12345 1\n.3 .4 1\n", decimals);
    }

    void everyExportAsksBeforeItReplacesItsInput()
    {
        QFETCH(QString, action);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, firstPage);
        const QString title = QStringLiteral("Replace the input file?");
        m_settings.set(QStringLiteral("Precision"), 3);
        const SampleFile file("data.txt", bytes);
        const QString link = file.folder() + "/link";
        QVERIFY(QFile::link(file.path(), link));
        read(action, QDir().relativeFilePath(file.path()));
        find<QPushButton>("processButton")->click();
        for (auto* button : buttons()) {
            m_dialogs.takeRecord();
            for (const QString& path : {file.path(), QDir().relativeFilePath(file.path()), link}) {
                m_dialogs.onBox(title, [](QMessageBox* box) { box->defaultButton()->click(); });
                m_dialogs.chooseFile(path);
                button->click();
                QCOMPARE(contentsOf(file.path()), bytes);
            }
            m_dialogs.onBox({}, {}); // yes
            m_dialogs.chooseFile(link);
            button->click();
            QVERIFY2(contentsOf(file.path()) != bytes, qPrintable(button->objectName()));
            QVERIFY(QFileInfo(link).isSymLink());

            QFile original(file.path());
            QVERIFY(original.open(QIODevice::WriteOnly) && original.write(bytes) == bytes.size());
            QStringList asked = m_dialogs.takeRecord();
            asked.removeIf([&](const QString& box) { return !box.startsWith(title); });
            QCOMPARE(asked.size(), 4);
            if (button->objectName() == "pushButtonSave" &&
                pages()->widget(0)->isAncestorOf(button))
                QCOMPARE(asked.first(), title + "|The session was read from this file. " +
                                            firstPage + " Replace it?");
        }
        m_dialogs.onBox({}, {});
    }

    void aSessionMayEndUnderItsOwnDialog_data()
    {
        // Without a target: the session's own input.
        const DataRows<QString, bool, bool> row("target", "underAQuestion", "withWindow");
        row("a new file", "new", false, false);
        row("an old file", "old", false, false);
        row("the question of the dialog", "old", true, false);
        row("the question about the input", "", true, false);
        // Not the dialog's own question: the toolkit's dialog cannot be deleted under it.
        row("an old file, with the window", "old", false, true);
        row("the question about the input, with the window", "", true, true);
    }

    void aSessionMayEndUnderItsOwnDialog()
    {
        QFETCH(QString, target);
        QFETCH(bool, underAQuestion);
        QFETCH(bool, withWindow);
        const SampleFile file("data.txt", fourCases);
        const SampleFile old("old", "old");
        const QString path = target.isEmpty() ? file.path() : old.folder() + u'/' + target;
        const auto endSession = [&] {
            if (withWindow)
                m_window.reset();
            else
                emit sessions()->tabCloseRequested(0);
        };
        const auto chooseAndEnd = [&](QPointer<QDialog> dialog) {
            if (!underAQuestion)
                endSession();
            if (!dialog)
                return;
            m_dialogs.onBox(target.isEmpty() ? "Replace the input file?" : dialog->windowTitle(),
                            [&](QPointer<QMessageBox> box) {
                                endSession();
                                if (box)
                                    box->button(QMessageBox::Yes)->click();
                            });
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
            QMetaObject::invokeMethod(dialog, "accept");
        };
        openSession(file.path());
        // The questions are asked by the code that all exports share: one button stands for all.
        const auto count = target == "old" && !underAQuestion && !withWindow ? buttons().size() : 1;
        for (int i = 0; i < count; ++i) {
            if (i > 0)
                openSession(file.path());
            m_dialogs.onDialog(chooseAndEnd);
            buttons().at(buttons().size() - count + i)->click();
            QVERIFY(!m_window || sessions()->count() == 0);
            QCOMPARE(contentsOf(old.path()), "old");
            QCOMPARE(contentsOf(file.path()), fourCases);
            QCOMPARE(QDir(old.folder()).entryList(QDir::Files), QStringList("old"));
        }
        m_dialogs.onBox({}, {});
        QCOMPARE(m_dialogs.takeRecord().filter("unanswered"), QStringList());
    }

    void aSessionMayEndUnderItsDialogOfNames()
    {
        const SampleFile file("data.txt", fourCases);
        for (const int page : {0, 1}) {
            openSession(file.path());
            pages()->setCurrentIndex(page);
            auto* button = find<QPushButton>("pushButtonEditNames");
            m_dialogs.onDialog([&](QDialog* dialog) {
                emit sessions()->tabCloseRequested(0);
                dialog->accept();
            });
            button->click();
            QCOMPARE(sessions()->count(), 0);
        }
    }

    void textsOfFilesAreNoMarkup()
    {
        const auto isPlain = [](QMessageBox* box, const QString& text) {
            int shown = 0;
            for (const auto* label : box->findChildren<QLabel*>())
                if (label->text().contains(text)) {
                    ++shown;
                    if (label->textFormat() != Qt::PlainText)
                        return false;
                }
            return shown > 0;
        };
        const QString name = QStringLiteral("<b>bold</b>.txt");
        bool plain = false;
        const auto look = [&](QMessageBox* box) {
            plain = isPlain(box, "<b>bold</b>");
            box->accept();
        };
        m_dialogs.onBox("Reading", look);
        reportReaderMessage({ReaderMessage::Severity::Information, "Reading", name});
        QVERIFY(plain);

        const SampleFile file("data.txt", fourCases);
        read("actionDataASCII", file.path());
        pages()->setCurrentIndex(0);
        plain = false;
        m_dialogs.onBox("Error opening file", look);
        m_dialogs.chooseFile("/nowhere/" + name);
        find<QPushButton>("pushButtonSave")->click();
        QVERIFY(plain);
        m_dialogs.onBox({}, {});

        const QString marked = file.folder() + u'/' + QString(name).remove(u'/');
        QVERIFY(QFile::copy(file.path(), marked));
        read("actionDataASCII", marked);
        const QString tip = sessions()->tabToolTip(1);
        QVERIFY(Qt::mightBeRichText(tip));
        QCOMPARE(QTextDocumentFragment::fromHtml(tip).toPlainText(), marked);
    }

    void everyDialogMayBeEscaped()
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

    void nonsenseInEverySetting()
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

    void aCommaLocaleChangesNoNumber()
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
    void closedSessionsKeepOnlyTheirPages()
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
};

QTEST_MAIN(TestFaults)
#include "tst_faults.moc"
