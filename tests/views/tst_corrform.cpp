// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/dialogscript.h"
#include "support/testsettings.h"
#include "views/corrform.h"
#include "views/fakesession.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFile>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <memory>

class TestCorrForm : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void showsTheMatrixWithNames();
    void namesReachTheSession();
    void exportIsLaidOutAsAgreed();
    void failedExportsAreTold_data();
    void failedExportsAreTold();
    void aCancelledExportStoresNothing();
    void theSessionMayGoFirst();
    void aShownPageMayGo();

private:
    QAbstractItemModel* model() const { return m_form->findChild<QTableView*>()->model(); }
    void click(const char* button) const
    {
        m_form->findChild<QAbstractButton*>(QLatin1String(button))->click();
    }

    const QString m_locationKey = QStringLiteral("Export/LastCorrExportLocation");
    TestSettings m_settings;
    DialogScript m_dialogs;
    std::unique_ptr<FakeSession> m_session;
    std::unique_ptr<CorrForm> m_form;
};

void TestCorrForm::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("No matching signal")));
}

void TestCorrForm::init()
{
    m_settings.clear();
    m_form.reset();
    m_session = std::make_unique<FakeSession>();
    m_form = std::make_unique<CorrForm>(m_session.get(), nullptr);
    setValues(m_session->data, {{1, 0.35}, {0.35, 1}});
    m_session->names = VariableNames::fromTexts({"Age", "Income"});
    m_session->data.setNames(m_session->names);
    m_form->fill(m_session->data);
    m_dialogs.takeRecord();
}

void TestCorrForm::showsTheMatrixWithNames()
{
    QCOMPARE(model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Income"));
    QCOMPARE(model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("Age"));
    QCOMPARE(model()->index(0, 1).data().toString(), QStringLiteral("0.35"));
    setValues(m_session->data, {{1, std::numeric_limits<double>::quiet_NaN()}, {0.35, 1}});
    m_form->fill(m_session->data);
    QCOMPARE(model()->index(0, 1).data().toString(), QStringLiteral("nan"));
}

void TestCorrForm::namesReachTheSession()
{
    m_dialogs.onDialog([](QDialog* dialog) {
        dialog->findChild<QTableWidget*>()->item(0, 0)->setText(QStringLiteral("Years"));
        dialog->accept();
    });
    click("pushButtonEditNames");
    QCOMPARE(m_dialogs.takeRecord(), QStringList({"Please enter names of variables"}));
    QCOMPARE(m_session->names.texts(), QVector<QString>({"Years", "Income"}));
    QCOMPARE(model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Years"));
    QCOMPARE(model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("Years"));
}

void TestCorrForm::exportIsLaidOutAsAgreed()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("saved.cor"));
    m_dialogs.chooseFile(path);
    click("pushButtonSave");
    QCOMPARE(m_dialogs.takeRecord(),
             QStringList(QStringLiteral("Export correlation matrix|%1|Correlation Files (*.cor)")
                             .arg(m_session->stem)));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             QByteArray("     1  0.35\n  0.35     1\nvname\t1\tAge\nvname\t2\tIncome\n"));
    QCOMPARE(m_settings.get(m_locationKey).toString(), path);
}

void TestCorrForm::failedExportsAreTold_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("box");
    QTest::newRow("full disk") << QStringLiteral("/dev/full")
                               << QStringLiteral(
                                      "Error while trying to save file|Cannot write to file!");
    QTest::newRow("no such folder") << QStringLiteral("/nowhere/saved.cor")
                                    << QStringLiteral("Error|Cannot open file for writing.");
}

void TestCorrForm::failedExportsAreTold()
{
    QFETCH(QString, path);
    if (path == QStringLiteral("/dev/full") && !QFile::exists(path))
        QSKIP("needs /dev/full");
    m_dialogs.chooseFile(path);
    click("pushButtonSave");
    QTEST(m_dialogs.takeRecord().last(), "box");
    QVERIFY(!m_settings.has(m_locationKey));
    QCOMPARE(model()->rowCount(), 2);
}

void TestCorrForm::aCancelledExportStoresNothing()
{
    m_dialogs.cancelFile();
    click("pushButtonSave");
    QCOMPARE(m_dialogs.takeRecord().size(), 1);
    QVERIFY(!m_settings.has(m_locationKey));
}

void TestCorrForm::theSessionMayGoFirst()
{
    m_form->show();
    m_session.reset();
    m_form->grab();
    QCOMPARE(model()->rowCount(), 0);
}

void TestCorrForm::aShownPageMayGo()
{
    m_form->show();
    m_form->grab();
    m_form.reset();
}

QTEST_MAIN(TestCorrForm)
#include "tst_corrform.moc"
