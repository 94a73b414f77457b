// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/pelmorasession.h"
#include "app/sessiontabwidget.h"
#include "support/dialogscript.h"
#include "support/samplefile.h"
#include "support/testsettings.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>

class TestPcaForm : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void tablesShowTheDecomposition();
    void numberOfFactorsIsPreset_data();
    void numberOfFactorsIsPreset();
    void processingNeedsAKind();
    void processingAddsPagesInOrder();
    void exportsAreColumnsWithTitles();
    void exportFailuresAreTold_data();
    void exportFailuresAreTold();
    void shownTablesKeepTheirPrecision();
    void everySlotIsConnected();

private:
    /// A session on a correlation matrix, its "PCA" page in front.
    void open(const QByteArray& matrix)
    {
        m_session.reset();
        m_tabs = std::make_unique<SessionTabWidget>();
        m_file = std::make_unique<SampleFile>("r.x.cor", matrix);
        m_session = std::make_unique<PelmoraSession>(nullptr);
        m_session->attachTabWidget(m_tabs.get());
        QVERIFY(m_session->loadCorrelationMatrix(m_file->path()));
        m_session->createCorrelationPage();
        m_session->createPcaPage();
        m_page = m_tabs->currentWidget();
    }

    template <typename Widget>
    Widget* widget(const char* name) const
    {
        return m_page->findChild<Widget*>(QLatin1String(name));
    }

    QStringList texts(const char* table) const
    {
        const auto* model = widget<QTableView>(table)->model();
        QStringList result;
        for (int i = 0; i < model->rowCount(); ++i) {
            for (int j = 0; j < model->columnCount(); ++j)
                result << model->index(i, j).data().toString();
        }
        return result;
    }

    QByteArray saved(const char* button)
    {
        const QString path = m_file->folder() + QStringLiteral("/saved");
        m_dialogs.chooseFile(path);
        widget<QPushButton>(button)->click();
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not written");
    }

    DialogScript m_dialogs;
    TestSettings m_settings;
    std::unique_ptr<SampleFile> m_file;
    std::unique_ptr<SessionTabWidget> m_tabs;
    std::unique_ptr<PelmoraSession> m_session;
    QWidget* m_page = nullptr;
};

void TestPcaForm::init()
{
    m_settings.clear();
    m_settings.set(QStringLiteral("OpenFolderAfterClosing"), false);
    m_dialogs.takeRecord();
}

void TestPcaForm::tablesShowTheDecomposition()
{
    open("1 0.6\n0.6 1\nvname 1 Age\nvname 2 Net income\n");
    QCOMPARE(texts("tableWidgetEigenwerte"),
             QStringList({"1.60", "0.40", "80.00", "20.00", "80.00", "100.00"}));
    QStringList loadings = texts("tableWidgetFaktorladungen");
    QCOMPARE(loadings.replaceInStrings("-", ""), QStringList({"0.89", "0.45", "0.89", "0.45"}));

    const auto* model = widget<QTableView>("tableWidgetEigenvektoren")->model();
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Factor F2"));
    QCOMPARE(model->headerData(1, Qt::Vertical).toString(), QStringLiteral("Net income"));
    const auto* values = widget<QTableView>("tableWidgetEigenwerte")->model();
    QCOMPARE(values->headerData(2, Qt::Vertical).toString(),
             QStringLiteral("Cumulative\nVariance[%]"));
}

void TestPcaForm::numberOfFactorsIsPreset_data()
{
    QTest::addColumn<QByteArray>("matrix");
    QTest::addColumn<int>("preset");
    QTest::addColumn<int>("maximum");
    QTest::newRow("identity") << QByteArray("1 0 0\n0 1 0\n0 0 1\n") << 3 << 3;
    QTest::newRow("one large") << QByteArray("1 .9 .9\n.9 1 .9\n.9 .9 1\n") << 2 << 3;
    QTest::newRow("one variable") << QByteArray("1\n") << 1 << 1;
}

void TestPcaForm::numberOfFactorsIsPreset()
{
    QFETCH(QByteArray, matrix);
    open(matrix);
    QTEST(widget<QSpinBox>("spinBoxNumberOfFactors")->value(), "preset");
    QTEST(widget<QSpinBox>("spinBoxNumberOfFactors")->maximum(), "maximum");
}

void TestPcaForm::processingNeedsAKind()
{
    open("1 0.6\n0.6 1\n");
    widget<QCheckBox>("checkBoxPelmora")->setChecked(false);
    widget<QPushButton>("processButton")->click();
    QCOMPARE(m_dialogs.takeRecord(),
             QStringList("Error|Please select at least one type of rotation"));
    QCOMPARE(m_tabs->count(), 2);
}

void TestPcaForm::processingAddsPagesInOrder()
{
    open("1 0.6\n0.6 1\n");
    widget<QPushButton>("processButton")->click();
    widget<QCheckBox>("checkBoxVarimax")->setChecked(true);
    widget<QCheckBox>("checkBoxUnrotated")->setChecked(true);
    widget<QPushButton>("processButton")->click();
    QCOMPARE(m_tabs->count(), 6);
    QCOMPARE(m_tabs->tabText(2), QStringLiteral("Pelmora[2]"));
    QCOMPARE(m_tabs->tabText(5), QStringLiteral("Initial[2]"));
}

void TestPcaForm::exportsAreColumnsWithTitles()
{
    open("1 0.6\n0.6 1\nvname 1 Age\nvname 2 Net \"income\"\n");
    QCOMPARE(saved("pushButtonExportEigenwerte"),
             QByteArray("Factor\tEigenvalue\tVariance\tCumulative\n"
                        "1\t1.60\t80.00\t80.00\n"
                        "2\t0.40\t20.00\t100.00\n"));
    const QStringList asked = m_dialogs.takeRecord();
    QCOMPARE(asked.value(0),
             QStringLiteral("Please select folder and filename to save values|%1/r.x|*.eig")
                 .arg(m_file->folder()));
    const QByteArray vectors = saved("pushButtonExportEigenvektoren").replace('-', "");
    QCOMPARE(vectors, QByteArray("Variable\tF1\tF2\n"
                                 "\"Age\"\t0.71\t0.71\n"
                                 "\"Net 'income'\"\t0.71\t0.71\n"));
    const QByteArray loadings = saved("pushButton").replace('-', "");
    QVERIFY(loadings.startsWith("Variable\tF1\tF2\n\"Age\"\t0.89\t0.45\n"));
}

void TestPcaForm::exportFailuresAreTold_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("box");
    QTest::newRow("no such folder") << "/nowhere/at/all"
                                    << "Error opening file|Cannot open file /nowhere/at/all";
    QTest::newRow("full disk") << "/dev/full"
                               << "Error while trying to save file|Cannot write to file!";
}

void TestPcaForm::exportFailuresAreTold()
{
    QFETCH(QString, path);
    QFETCH(QString, box);
    open("1 0.6\n0.6 1\n");
    for (const char* button :
         {"pushButtonExportEigenwerte", "pushButtonExportEigenvektoren", "pushButton"}) {
        m_dialogs.chooseFile(path);
        widget<QPushButton>(button)->click();
        QCOMPARE(m_dialogs.takeRecord().last(), box);
    }
    m_dialogs.cancelFile();
    widget<QPushButton>("pushButton")->click();
    QCOMPARE(m_dialogs.takeRecord().size(), 1);
}

void TestPcaForm::shownTablesKeepTheirPrecision()
{
    open("1 0.6\n0.6 1\n");
    m_settings.set(QStringLiteral("Precision"), 4);
    QCOMPARE(texts("tableWidgetEigenwerte").first(), QStringLiteral("1.60"));
    m_session->createPcaPage();
    m_page = m_tabs->currentWidget();
    QCOMPARE(texts("tableWidgetEigenwerte").first(), QStringLiteral("1.6000"));
}

void TestPcaForm::everySlotIsConnected()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("No matching signal")));
    open("1 0.6\n0.6 1\n");
}

QTEST_MAIN(TestPcaForm)
#include "tst_pcaform.moc"
