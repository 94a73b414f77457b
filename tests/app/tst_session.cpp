// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "apptest.h"
#include "numerics/correlation.h"
#include "numerics/rotation.h"
#include "support/difference.h"

#include <QLabel>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>

namespace {

QString sample(const QString& name)
{
    return QStringLiteral(PELMORA_DATA_DIR "/") + name;
}

double meanProduct(const pelmora::Matrix& a, int columnOfA, const pelmora::Matrix& b, int columnOfB)
{
    double sum = 0.0;
    for (int i = 0; i < a.rows(); ++i)
        sum += a[i][columnOfA] * b[i][columnOfB];
    return sum / a.rows();
}

pelmora::Matrix transposed(const pelmora::Matrix& matrix)
{
    pelmora::Matrix result(matrix.columns(), matrix.rows());
    for (int i = 0; i < matrix.rows(); ++i) {
        for (int j = 0; j < matrix.columns(); ++j)
            result[j][i] = matrix[i][j];
    }
    return result;
}

} // namespace

class TestSession : public AppTest
{
    Q_OBJECT

private:
    // Two of its bytes have no letter of their own; unchanged, it is written as it came.
    const QByteArray m_unlettered = "\xC3\x9C\x81\x9F";
    const QByteArray m_namedCases =
        fourCases + "vname\t2\t" + m_unlettered + "\nvname\t3\tHeight\n";

private slots:
    void aSessionNeedsAFileAndATabWidget()
    {
        PelmoraSession session(nullptr);
        try {
            session.rowCount();
            QFAIL("an empty session has told its size");
        } catch (const std::exception& error) {
            QCOMPARE(error.what(), "Internal Error!");
        }
        QVERIFY(session.loadDataMatrix(sample("box-problem.txt")));
        QVERIFY(!session.createDataPage());
        QVERIFY(!session.createCorrelationPageFromData());
    }

    void twentyFourTestsFitTheWindow()
    {
        m_window->show();
        read("actionCorrASCII", sample("harman-24-psychological-tests.cor"));
        QCoreApplication::processEvents();
        const int lowRow = find<QTableView>("tableWidgetEigenwerte")->rowHeight(0);
        pages()->setCurrentIndex(0);
        QCoreApplication::processEvents();
        const auto* table = find<QTableView>("tableCorrelations");
        QCOMPARE(table->horizontalScrollBar()->maximum(), 0);
        QCOMPARE(table->rowHeight(0), lowRow);
    }

    void scoresHaveUnitVariance_data()
    {
        QTest::addColumn<int>("method");
        QTest::addColumn<bool>("rowWise");
        QTest::addRow("Pelmora") << int(pelmora::PelmoraRotation) << false;
        QTest::addRow("Varimax") << int(pelmora::VarimaxRotation) << false;
        QTest::addRow("initial") << int(pelmora::NoRotation) << false;
        QTest::addRow("Pelmora, row-wise") << int(pelmora::PelmoraRotation) << true;
    }

    void scoresHaveUnitVariance()
    {
        QFETCH(int, method);
        QFETCH(bool, rowWise);
        read("actionDataASCII", sample("box-problem.txt"));
        const auto& lines = session()->currentMatrix().matrix();
        const auto data = rowWise ? transposed(lines) : lines.clone();
        pelmora::Standardisation used;
        QVERIFY(!pelmora::correlations(data, rowWise, used).isNull());
        const pelmora::RawScores raw{.data = &data, .used = &used, .rowWise = rowWise};
        pelmora::Matrix standardised(20, data.rows() + data.columns() - 20);
        pelmora::standardise(raw, 0, 20, standardised);
        const auto [loadings, coefficients, scores] =
            pelmora::extractFactors(session()->decomposition(), 3, method, raw);
        QCOMPARE(scores.rows(), 20);
        QCOMPARE(coefficients.columns(), 3);
        for (int j = 0; j < 3; ++j) {
            for (int k = 0; k <= j; ++k)
                QCOMPARE(difference(meanProduct(scores, j, scores, k), j == k ? 1.0 : 0.0, 1e-9),
                         QString());
            // A loading is the correlation of variable and factor.
            for (int v = 0; v < loadings.rows(); ++v)
                QCOMPARE(difference(meanProduct(scores, j, standardised, v), loadings[v][j], 1e-9),
                         QString());
        }
    }

    void pagesComeInOrder_data()
    {
        const DataRows<QByteArray, int, QStringList> row("data", "factors", "boxes");
        row("two of three factors", fourCases, 2, {});
        row("all factors", fourCases, 3, {});
        row("one variable", "1\n2\n4\n", 1, {});
        row("a constant variable", "1 5 2\n2 5 1\n3 5 5\n4 5 3\n", 2,
            {"Error|Error: no convergence in finding eigen values."});
    }

    void pagesComeInOrder()
    {
        QFETCH(QByteArray, data);
        QFETCH(int, factors);
        const SampleFile file("data.txt", data);
        read("actionDataASCII", file.path());
        QTEST(m_dialogs.takeRecord().mid(1), "boxes");
        session()->createRotationPages(factors, 7);
        session()->createRotationPages(1, 4 | 1);
        const QString m = QString::number(factors);
        QCOMPARE(titles(pages()), QStringList({"Raw data", "Correlations", "PCA",
                                               "Pelmora[" + m + "]", "Varimax[" + m + "]",
                                               "Initial[" + m + "]", "Pelmora[1]", "Initial[1]"}));
        for (int i = 0; i < pages()->count(); ++i)
            QVERIFY(!pages()->widget(i)->grab().isNull());

        pages()->setCurrentIndex(3);
        QStringList parts = {"Visualization", "Minimal pairs", "Factor scores"};
        if (session()->columnCount() == 1)
            parts.removeAt(1);
        else
            QCOMPARE(find<QTabWidget>("tabWidgetMinimalPairs")->tabText(factors - 1),
                     "Focal factor No. " + m);
        QCOMPARE(titles(find<QTabWidget>()), parts);
    }

    void everyPageShowsItsOwnKind_data()
    {
        const DataRows<int, int, QString> row("page", "method", "title");
        row("Pelmora", 3, pelmora::PelmoraRotation, "Pelmora rotated factors : ");
        row("Varimax", 4, pelmora::VarimaxRotation, "Varimax rotated factors : ");
        row("initial", 5, pelmora::NoRotation, "Initial factors : ");
    }

    void everyPageShowsItsOwnKind()
    {
        QFETCH(int, page);
        QFETCH(int, method);
        m_settings.set(QStringLiteral("Precision"), 9);
        read("actionDataASCII", sample("box-problem.txt"));
        session()->createRotationPages(3, 7);
        const auto own = pelmora::extractFactors(session()->decomposition(), 3, method);
        pages()->setCurrentIndex(page);
        QTEST(find<QLabel>("labelFactors")->text(), "title");
        const QByteArray first = QByteArray::number(own.loadings[0][0], 'g', 6);
        const QByteArray written = saved("ExportRotated");
        QVERIFY2(written.contains(first), written.constData());
    }

    void rotationsThatChangeNothingSaySo_data()
    {
        const DataRows<QByteArray, QStringList> row("correlations", "unmoved");
        row("both criteria are stationary", "1\n.8 1\n.3 .3 1\n.3 .3 .8 1\n",
            {"Pelmora[2]", "Varimax[2]"});
        row("neither is", "1\n.8 1\n.3 .2 1\n.3 .1 .7 1\n", {});
    }

    void rotationsThatChangeNothingSaySo()
    {
        QFETCH(QByteArray, correlations);
        const SampleFile file("matrix.cor", correlations);
        read("actionCorrASCII", file.path());
        session()->createRotationPages(2, 7);
        QStringList told;
        for (int i = 2; i < pages()->count(); ++i)
            if (!pages()->widget(i)->findChild<QLabel*>("labelUnmoved")->isHidden())
                told << pages()->tabText(i);
        QTEST(told, "unmoved");
    }

    /// Results and the number of cases are those of the new orientation; names beyond its variables
    /// are kept for the way back.
    void orientationThereAndBack()
    {
        const SampleFile file("data.txt", fourCases + "5 1 2\n");
        read("actionDataASCII", file.path());
        const auto requireFreshTables = [this](int variables, int cases) {
            pages()->setCurrentIndex(1);
            QCOMPARE(find<QSpinBox>("spinBoxCases")->value(), cases);
            for (const int tab : {1, 3}) {
                const auto* table = tab == 1 ? "tableAdequacy" : "tableNumberOfFactors";
                const auto* model = find<QTableView>(table)->model();
                QCOMPARE(model->rowCount(), 0);
                find<QTabWidget>("tabWidgetCorrelations")->setCurrentIndex(tab);
                QCOMPARE(model->rowCount(), variables + (tab == 3));
            }
        };
        const auto& loadings = session()->decomposition().initialLoadings;
        const auto before = loadings.clone();
        requireFreshTables(3, 5);

        session()->setRowWise(true);
        QVERIFY(session()->isRowWise());
        QVERIFY(!difference(loadings, before).isEmpty());
        QCOMPARE(titles(pages()), QStringList({"Raw data", "Correlations", "PCA"}));
        requireFreshTables(5, 3);
        session()->createRotationPages(2, 2);
        session()->setVariableNames({"a", "b", "c", "d", "e"});

        session()->setRowWise(false);
        QCOMPARE(titles(pages()), QStringList({"Raw data", "Correlations", "PCA", "Varimax[2]"}));
        QCOMPARE(difference(loadings, before), QString());
        requireFreshTables(3, 5);
        QCOMPARE(session()->variableNames(), QStringList({"a", "b", "c"}));

        session()->setVariableNames({"x", "y", "z"});
        session()->setRowWise(true);
        QCOMPARE(session()->variableNames(), QStringList({"x", "y", "z", "d", "e"}));
        pages()->setCurrentIndex(3);
        QVERIFY(saved("ExportRotated").contains("| x\n"));
    }

    void namesReachEveryPage()
    {
        openSession(SampleFile("data.txt", m_namedCases).path());
        const QStringList names = session()->variableNames();
        QCOMPARE(names, QStringList({"1", "\u00C3\u0153\uFFFD\u0178", "Height"}));

        const QSignalSpy changed(session(), &SessionFace::variableNamesChanged);
        session()->setVariableNames({"Länge", names[1], "\u0416 third"});
        QCOMPARE(changed.size(), 1);
        QCOMPARE(session()->variableNames(), QStringList({"Länge", names[1], "? third"}));

        // Minimal pairs are made when they are shown.
        m_window->show();
        pages()->setCurrentIndex(3);
        find<QTabWidget>()->setCurrentIndex(1);
        int tables = 0;
        for (const auto* view : pages()->findChildren<QTableView*>()) {
            const auto* model = view->model();
            for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
                const int sections =
                    orientation == Qt::Horizontal ? model->columnCount() : model->rowCount();
                QStringList headers;
                for (int i = 0; i < sections; ++i)
                    headers << model->headerData(i, orientation).toString().replace('\n', ' ');
                QVERIFY2(!headers.contains("Height"), qPrintable(view->objectName()));
                tables += headers.contains("? third") ? 1 : 0;
            }
        }
        // Raw data and their statistics, correlations both ways, eigenvectors, loadings, three
        // diagrams, pairs.
        QVERIFY2(tables >= 11, qPrintable(QString::number(tables)));
    }

    void namesReachEveryFile_data()
    {
        const DataRows<int, QString> row("page", "button");
        row("raw data", 0, "pushButtonSave");
        row("correlations", 1, "pushButtonSave");
        row("eigenvectors", 2, "pushButtonExportEigenvektoren");
        row("initial loadings", 2, "pushButton");
        row("rotated loadings", 3, "ExportRotated");
    }

    void namesReachEveryFile()
    {
        QFETCH(int, page);
        QFETCH(QString, button);
        openSession(SampleFile("data.txt", m_namedCases).path());
        session()->setVariableNames({"1", session()->variableNames()[1], "\u0416 third"});
        pages()->setCurrentIndex(page);
        const QByteArray written = saved(button);
        QVERIFY2(written.contains(m_unlettered) && written.contains("? third"),
                 written.constData());
    }

    void pagesOutliveTheirTabsAndTheirSession()
    {
        openSession(sample("box-problem.txt"));
        const QPointer<QWidget> page = pages()->widget(3);
        emit pages()->tabCloseRequested(3);
        QCOMPARE(pages()->count(), 5);
        QVERIFY(page);
        delete session();
        for (int i = 0; i < pages()->count(); ++i)
            QVERIFY(!pages()->widget(i)->grab().isNull());
    }
};

QTEST_MAIN(TestSession)
#include "tst_session.moc"
