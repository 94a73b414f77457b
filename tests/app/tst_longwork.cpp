// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "apptest.h"
#include "views/longwork.h"

#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>

#include <algorithm>

namespace {

/// Cases of variables with one common factor.
QByteArray cases(int count, int variables)
{
    QRandomGenerator random(5);
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        const double common = random.generateDouble();
        for (int j = 0; j < variables; ++j)
            bytes += QByteArray::number(common + random.generateDouble(), 'f', 3) + ' ';
        bytes += '\n';
    }
    return bytes;
}

QByteArray equicorrelated(int variables)
{
    QByteArray bytes;
    for (int i = 0; i < variables; ++i) {
        for (int j = 0; j < variables; ++j)
            bytes += i == j ? "1 " : "0.25 ";
        bytes += '\n';
    }
    return bytes;
}

constexpr std::chrono::milliseconds atOnce{0};

} // namespace

/// The dialog appears at once here. While it stands, its text is looked at again and again.
class TestLongWork : public AppTest
{
    Q_OBJECT

public:
    TestLongWork()
    {
        m_watch.setInterval(0);
        connect(&m_watch, &QTimer::timeout, this, &TestLongWork::look);
        m_watch.start();
        LongWork::patience() = atOnce;
    }

private:
    void look()
    {
        auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        const QString text = dialog->labelText();
        m_isPlain = dialog->findChild<QLabel*>()->textFormat() == Qt::PlainText;
        if (m_seen.isEmpty() || m_seen.last() != text)
            m_seen << text;
        if (m_whenSeen)
            std::exchange(m_whenSeen, nullptr)();
        if (!m_cancelAt.isEmpty() && text.startsWith(m_cancelAt))
            dialog->findChild<QPushButton*>()->click();
    }
    QString message() const
    {
        return m_window->findChild<QStatusBar*>(QStringLiteral("statusBar"))->currentMessage();
    }

    QTimer m_watch;
    QString m_cancelAt;     ///< beginning of the text at which "Cancel" is pressed
    QStringList m_seen;     ///< texts, in order, each once
    bool m_isPlain = false; ///< for a file's name may look like markup
    std::function<void()> m_whenSeen;

private slots:
    void shortWorkShowsNothing()
    {
        LongWork::patience() = std::chrono::milliseconds(800);
        openSession(SampleFile("small.txt", fourCases).path());
        LongWork::patience() = atOnce;
        QCOMPARE(m_seen, QStringList());
    }

    void cancelledOpeningLeavesNoSession_data()
    {
        const DataRows<QString, QString> row("action", "cancelAt");
        row("reading", "actionDataASCII", "Reading big.txt");
        row("correlations", "actionDataASCII", "Correlations");
        row("eigenvalues", "actionDataASCII", "Eigenvalues: sweep 3");
        row("reading correlations", "actionCorrASCII", "Reading big.txt");
        row("their eigenvalues", "actionCorrASCII", "Eigenvalues: sweep 2");
    }

    void cancelledOpeningLeavesNoSession()
    {
        QFETCH(QString, action);
        QFETCH(QString, cancelAt);
        const bool rawData = action == QLatin1String("actionDataASCII");
        const SampleFile small("small.txt", fourCases);
        read("actionDataASCII", small.path());
        const QString before = message();
        m_dialogs.takeRecord();

        const SampleFile big("big.txt", rawData ? cases(500, 200) : equicorrelated(300));
        m_seen.clear();
        m_cancelAt = cancelAt;
        read(action, big.path());
        m_cancelAt.clear();
        QVERIFY2(!m_seen.isEmpty() && m_seen.last().startsWith(cancelAt),
                 qPrintable(m_seen.join('|')));
        QVERIFY(m_isPlain);
        QCOMPARE(sessions()->count(), 1);
        QCOMPARE(m_window->findChildren<PelmoraSession*>().size(), 1);
        QCOMPARE(message(), before);
        QCOMPARE(m_opened, QStringList());
        // The dialogs for the file and for the progress, and no box.
        QCOMPARE(m_dialogs.takeRecord().filter("Error"), QStringList());
        QCOMPARE(
            m_settings.get(rawData ? "Input/LastDataASCIILocation" : "Input/LastCorrASCIILocation")
                .toString(),
            big.path());

        read(action, big.path());
        QCOMPARE(sessions()->count(), 2);
    }

    void cancelledOrientationLeavesEverything()
    {
        read("actionDataASCII", SampleFile("wide.txt", cases(400, 80)).path());
        const auto* raw = pages()->widget(0);
        const QWidget* correlations = pages()->widget(1);
        const QWidget* pca = pages()->widget(2);
        const double first = session()->decomposition().eigenvalues[0];
        auto* columnWise = raw->findChild<QRadioButton*>("radioButtonColumnWise");
        auto* rowWise = raw->findChild<QRadioButton*>("radioButtonRowWise");
        for (const char* step : {"Correlations", "Eigenvalues"}) {
            m_cancelAt = step;
            rowWise->click();
            QVERIFY(columnWise->isChecked());
            QVERIFY(!session()->isRowWise());
            QCOMPARE(pages()->widget(1), correlations);
            QCOMPARE(pages()->widget(2), pca);
            QCOMPARE(session()->decomposition().eigenvalues.size(), 80);
            QCOMPARE(session()->decomposition().eigenvalues[0], first);
        }
        m_cancelAt.clear();
        rowWise->click();
        QVERIFY(session()->isRowWise());
        QCOMPARE(session()->decomposition().eigenvalues.size(), 400);
    }

    void cancelledPagesAreNotMade()
    {
        read("actionDataASCII", SampleFile("data.txt", cases(400, 120)).path());
        for (auto* box : pages()->currentWidget()->findChildren<QCheckBox*>())
            box->setChecked(true);
        find<QSpinBox>("spinBoxNumberOfFactors")->setValue(40);
        auto* start = find<QPushButton>("processButton");
        m_cancelAt = "Rotating: sweep";
        start->click();
        QCOMPARE(pages()->count(), 3);

        // What is complete stays.
        m_cancelAt.clear();
        QTimer untilSecond;
        untilSecond.setInterval(0);
        connect(&untilSecond, &QTimer::timeout, this, [this] {
            if (pages()->count() > 3)
                m_cancelAt = "Rotating";
        });
        untilSecond.start();
        start->click();
        m_cancelAt.clear();
        QCOMPARE(titles(pages()), QStringList({"Raw data", "Correlations", "PCA", "Pelmora[40]"}));
    }

    void aCancelledImageIsNowhere()
    {
        openSession(SampleFile("data.txt", cases(30, 20)).path());
        pages()->setCurrentIndex(3);
        QGuiApplication::clipboard()->setText("before");
        m_dialogs.takeRecord();
        m_cancelAt = "Drawing the image";
        find<QPushButton>("ImageButton")->click();
        m_cancelAt.clear();
        QVERIFY(m_seen.contains("Drawing the image"));
        QCOMPARE(QGuiApplication::clipboard()->text(), "before");
        QCOMPARE(m_dialogs.takeRecord(), QStringList());

        // The drawing is complete and copied, and its file is being made.
        const SampleFile old("old.png", "old");
        m_dialogs.onDialog([&](QDialog* dialog) {
            m_seen.clear();
            m_cancelAt = "Drawing the image";
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(old.path());
            QMetaObject::invokeMethod(dialog, "accept");
        });
        find<QPushButton>("ImageButton")->click();
        m_cancelAt.clear();
        QCOMPARE(m_seen, QStringList("Drawing the image"));
        QCOMPARE(m_dialogs.takeRecord().filter("Error"), QStringList());
        QCOMPARE(contentsOf(old.path()), "old");
        QCOMPARE(QDir(old.folder()).entryList(QDir::Files | QDir::Hidden), QStringList("old.png"));
        QVERIFY(saved("ImageButton").startsWith("\x89PNG"));
    }

    void aCancelledDrawingLeavesTheFile_data()
    {
        const DataRows<QString> row("name");
        row("pdf", "old.pdf");
        row("svg", "old.svg");
    }

    void aCancelledDrawingLeavesTheFile()
    {
        QFETCH(QString, name);
        read("actionDataASCII", SampleFile("data.txt", cases(60, 40)).path());
        find<QSpinBox>("spinBoxNumberOfFactors")->setValue(30);
        find<QPushButton>("processButton")->click();
        pages()->setCurrentIndex(3);
        const QList<QAction*> actions = find<QTableView>("tableFactors")->actions();
        const auto save = std::ranges::find(actions, "Save as drawing\u2026", &QAction::text);
        QVERIFY(save != actions.end());
        const SampleFile old(name, "old");
        m_dialogs.chooseFile(old.path());
        m_dialogs.takeRecord();
        m_seen.clear();
        m_cancelAt = "Drawing the image";
        (*save)->trigger();
        m_cancelAt.clear();
        QCOMPARE(m_seen, QStringList("Drawing the image"));
        QCOMPARE(m_dialogs.takeRecord().filter("Error"), QStringList());
        QCOMPARE(contentsOf(old.path()), "old");
        QCOMPARE(QDir(old.folder()).entryList(QDir::Files | QDir::Hidden), QStringList(name));

        m_dialogs.chooseFile(old.path());
        (*save)->trigger();
        QVERIFY(contentsOf(old.path()).size() > 10000);
    }

    void nothingElseCanBeDoneMeanwhile()
    {
        read("actionDataASCII", SampleFile("small.txt", fourCases).path());
        m_window->show();
        m_dialogs.takeRecord();
        bool closed = true;
        m_whenSeen = [this, &closed] {
            trigger("actionDataASCII");
            emit sessions()->tabCloseRequested(0);
            closed = m_window->close();
        };
        m_seen.clear();
        const SampleFile big("big.txt", cases(500, 150));
        read("actionDataASCII", big.path());
        QVERIFY(!m_seen.isEmpty());
        QVERIFY(!closed);
        QVERIFY(m_window->isVisible());
        QCOMPARE(sessions()->count(), 2);
    }
};

QTEST_MAIN(TestLongWork)
#include "tst_longwork.moc"
