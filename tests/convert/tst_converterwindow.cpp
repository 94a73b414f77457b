// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/converterwindow.h"
#include "support/datarows.h"
#include "support/dialogscript.h"
#include "support/samplefile.h"

#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QUrl>

/// The window by its widgets' names, as a user meets them.
class TestConverterWindow : public QObject
{
    Q_OBJECT

private slots:
    void choicesLeadToASavedFile();
    void columnsCanBeLeftOut();
    void reasonsNameTheControls_data();
    void reasonsNameTheControls();
    void theSourceIsNotReplaced();
    void aDroppedFileStartsAfresh();

private:
    template <typename Widget>
    Widget* find(const char* name) const
    {
        return m_window->findChild<Widget*>(QString::fromLatin1(name));
    }
    void open(const QString& path)
    {
        m_window = std::make_unique<ConverterWindow>(nullptr);
        m_window->show();
        QSignalSpy settled(m_window.get(), &ConverterWindow::settled);
        m_window->openFile(path);
        QVERIFY(settled.count() > 0 || settled.wait());
    }
    void choose(const char* box, int index)
    {
        QSignalSpy settled(m_window.get(), &ConverterWindow::settled);
        auto* combo = find<QComboBox>(box);
        combo->setCurrentIndex(index);
        emit combo->activated(index);
        QVERIFY(settled.count() > 0 || settled.wait());
    }
    QString report() const { return find<QPlainTextEdit>("textReport")->toPlainText(); }

    std::unique_ptr<ConverterWindow> m_window;
};

void TestConverterWindow::choicesLeadToASavedFile()
{
    DialogScript script;
    const SampleFile file(QStringLiteral("my.table.csv"), "a;b\n1,234;2\n3,500;4\n");
    open(file.path());
    QVERIFY(!find<QPushButton>("buttonSave")->isEnabled());
    QVERIFY2(report().contains("line 2, column 1 (a)"), qPrintable(report()));
    QCOMPARE(find<QComboBox>("comboSeparator")->currentText(), "Semicolon (recognised)");
    QCOMPARE(find<QComboBox>("comboDecimal")->currentText(), "(to be chosen)");

    choose("comboDecimal", 2);
    QVERIFY2(report().contains("Result: 2 rows and 2 columns"), qPrintable(report()));
    const auto* preview = find<QTableView>("tablePreview")->model();
    QCOMPARE(preview->index(1, 0).data().toString(), "3,500");
    QCOMPARE(preview->headerData(1, Qt::Horizontal).toString(), "b");
    QCOMPARE(preview->headerData(1, Qt::Vertical).toInt(), 3);

    const QString saved = file.folder() + "/saved.dat";
    script.chooseFile(saved);
    find<QPushButton>("buttonSave")->click();
    QCOMPARE(contentsOf(saved), QByteArray("1.234\t2\n3.500\t4\nvname\t1\ta\nvname\t2\tb\n"));
    QCOMPARE(script.takeRecord(),
             QStringList("Save for Pelmora|" + file.folder() + "/my.table.dat|Data Files (*.dat)"));
}

void TestConverterWindow::columnsCanBeLeftOut()
{
    const SampleFile file(QStringLiteral("t.csv"), "n;a\nx;1,5\ny;2\n");
    open(file.path());
    QVERIFY2(report().contains("column 1 (n): no number in it"), qPrintable(report()));
    const auto* preview = find<QTableView>("tablePreview")->model();
    const QModelIndex fault = preview->index(0, 0);
    QVERIFY(fault.data(Qt::BackgroundRole).isValid());

    QSignalSpy settled(m_window.get(), &ConverterWindow::settled);
    find<QListWidget>("listColumns")->item(0)->setCheckState(Qt::Unchecked);
    QVERIFY(settled.count() > 0 || settled.wait());
    QVERIFY2(report().contains("Result: 2 rows and 1 columns"), qPrintable(report()));
    QVERIFY(!preview->index(0, 0).data(Qt::BackgroundRole).isValid());
}

void TestConverterWindow::reasonsNameTheControls_data()
{
    const DataRows<QByteArray, QString> row("content", "help");
    row("kind", ";a;b\na;1;0.5\nb;0.5;1\n", "say \"Kind: Correlations\" or \"Kind: Data\".");
    row("encoding", QByteArray("a;b\n1;\0\n", 8),
        "is read with \"Encoding: utf-16le\" or \"Encoding: utf-16be\".");
    row("separator", "a;b\n\"1\"x;2\n", "another one is named by \"Separator\")");
    row("decimal sign", "a;b\n1,234;2\n", "by \"Decimal sign: Point\" or \"Decimal sign: Comma\".");
    row("header", "a;1\n2;3\n", "by \"Header: First row\" or \"Header: None\".");
    row("missing values", "a;b\n1;2\n2;999\n3;999\n",
        "by \"Missing values\", for instance \"Missing values: NA,-99\"; if they are values, say "
        "\"Missing values: none\".");
    row("lines", "a;b\n1;2\n\n3;4\n", "leave it out by \"Lines to leave out: 3\".");
    row("columns", "n;a\nx;1\ny;2\n", "Say by \"Columns to keep\" which columns");
    row("what the file holds", "a;b\n1;--kind data\n2;3\n", "\"--kind data\" is no number");
}

void TestConverterWindow::reasonsNameTheControls()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, help);
    open(SampleFile(QStringLiteral("t.csv"), content).path());
    QVERIFY2(report().contains(help), qPrintable(report()));
}

void TestConverterWindow::theSourceIsNotReplaced()
{
    DialogScript script;
    const SampleFile file(QStringLiteral("t.dat"), "a;b\n1;2\n3;4\n");
    open(file.path());
    script.chooseFile(file.path());
    find<QPushButton>("buttonSave")->click();
    QVERIFY(script.takeRecord().join(u' ').contains("is the file that was read"));
    QVERIFY(contentsOf(file.path()).startsWith("a;b"));
}

void TestConverterWindow::aDroppedFileStartsAfresh()
{
    const SampleFile first(QStringLiteral("t.csv"), "a;b\n1;2\n3;4\n");
    const SampleFile second(QStringLiteral("u.csv"), "c,d\n1.5,2\n3,4\n");
    open(first.path());
    choose("comboSeparator", 2);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(second.path())});
    QSignalSpy settled(m_window.get(), &ConverterWindow::settled);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &drop);
    QVERIFY(settled.count() > 0 || settled.wait());
    QCOMPARE(find<QComboBox>("comboSeparator")->currentText(), "Comma (recognised)");
    QVERIFY2(report().contains("Result: 2 rows and 2 columns"), qPrintable(report()));
}

QTEST_MAIN(TestConverterWindow)
#include "tst_converterwindow.moc"
