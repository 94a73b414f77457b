// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/errorbox.h"
#include "app/pelmorasession.h"
#include "app/sessiontabwidget.h"
#include "input/asciidatareader.h"
#include "numerics/rotation.h"
#include "support/dialogscript.h"
#include "support/referencefile.h"
#include "support/samplefile.h"
#include "support/testsettings.h"

#include <QAbstractItemModel>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>

namespace {

using Rows = std::vector<std::vector<double>>;

QString sample(const QString& name)
{
    return QStringLiteral(PELMORA_DATA_DIR "/") + name;
}

double largestDifference(const Rows& expected, const std::function<double(int, int)>& value)
{
    double largest = 0.0;
    for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
        for (int j = 0; j < static_cast<int>(expected[i].size()); ++j)
            largest = std::max(largest, std::abs(expected[i][j] - value(i, j)));
    }
    return largest;
}

/// The order in which the references arrange columns: by sums of squares, largest first; each is
/// reflected to a positive sum.
struct Arranged
{
    explicit Arranged(const pelmora::Matrix& loadings)
        : order(loadings.columns())
        , sign(loadings.columns())
        , squares(loadings.columns())
    {
        for (int j = 0; j < loadings.columns(); ++j) {
            double sum = 0.0;
            for (int i = 0; i < loadings.rows(); ++i) {
                sum += loadings[i][j];
                squares[j] += loadings[i][j] * loadings[i][j];
            }
            sign[j] = sum < 0.0 ? -1.0 : 1.0;
        }
        std::iota(order.begin(), order.end(), 0);
        std::sort(order.begin(), order.end(),
                  [&](int a, int b) { return squares[a] > squares[b]; });
    }
    std::vector<int> order;
    std::vector<double> sign;
    std::vector<double> squares;
};

bool sameBits(const pelmora::Matrix& a, const pelmora::Matrix& b)
{
    if (a.rows() != b.rows() || a.columns() != b.columns())
        return false;
    for (int i = 0; i < a.rows(); ++i) {
        if (std::memcmp(a[i], b[i], sizeof(double) * a.columns()) != 0)
            return false;
    }
    return true;
}

QStringList titles(const QTabWidget& tabs)
{
    QStringList result;
    for (int i = 0; i < tabs.count(); ++i)
        result << tabs.tabText(i);
    return result;
}

} // namespace

class TestSession : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { installErrorBox(); }
    void init();
    void anEmptySessionHasNoMatrix();
    void pagesNeedATabWidget();
    void samplesGiveTheReferences_data();
    void samplesGiveTheReferences();
    void scoresHaveUnitVariance_data();
    void scoresHaveUnitVariance();
    void rotationPagesComeInOrder();
    void allFactorsCanBeRotated();
    void oneVariableHasNoPairs();
    void aConstantVariableGivesPagesAllTheSame();
    void orientationThereAndBackIsTheSameToTheBit();
    void namesReachEveryPageAndExport();
    void closedPagesLiveOn();
    void pagesOutliveTheirSession();

private:
    DialogScript m_dialogs;
    TestSettings m_settings;
};

void TestSession::init()
{
    m_settings.clear();
    m_settings.set(QStringLiteral("OpenFolderAfterClosing"), false);
    m_dialogs.takeRecord();
}

void TestSession::anEmptySessionHasNoMatrix()
{
    const PelmoraSession session(nullptr);
    try {
        session.rowCount();
        QFAIL("an empty session has told its size");
    } catch (const std::exception& error) {
        QCOMPARE(error.what(), "Internal Error!");
    }
}

void TestSession::pagesNeedATabWidget()
{
    PelmoraSession session(nullptr);
    QVERIFY(session.loadDataMatrix(sample("box-problem.txt")));
    QVERIFY(!session.createDataPage());
    QVERIFY(!session.createCorrelationPageFromData());
}

void TestSession::samplesGiveTheReferences_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reference");
    QTest::addColumn<int>("factors");
    QTest::newRow("raw data") << "box-problem.txt"
                              << "box-problem" << 3;
    QTest::newRow("correlations") << "harman-24-psychological-tests.cor"
                                  << "harman-24" << 4;
}

void TestSession::samplesGiveTheReferences()
{
    QFETCH(QString, file);
    QFETCH(QString, reference);
    QFETCH(int, factors);
    SessionTabWidget tabs;
    PelmoraSession session(nullptr);
    session.attachTabWidget(&tabs);
    if (file.endsWith(QStringLiteral(".cor"))) {
        QVERIFY(session.loadCorrelationMatrix(sample(file)));
        session.createCorrelationPage();
    } else {
        QVERIFY(session.loadDataMatrix(sample(file)));
        session.createCorrelationPageFromData();
    }
    session.createPcaPage();

    const auto& decomposition = session.decomposition();
    const auto eigenvalues = readReference(reference + ".eigenvalues.txt");
    const double eigenError =
        largestDifference(eigenvalues, [&](int i, int) { return decomposition.eigenvalues[i]; });
    QVERIFY2(eigenError < 1e-11, qPrintable(QString::number(eigenError)));

    const auto result = factoranalysis::factors(decomposition, factors, pelmora::VarimaxRotation,
                                                pelmora::Matrix(), false);
    const Arranged arranged(result.loadings);
    const auto loadings =
        readReference(QStringLiteral("%1.varimax-%2.txt").arg(reference).arg(factors));
    // R stops where its own criterion allows: 1e-6 is its precision, not ours.
    const double loadingError = largestDifference(loadings, [&](int i, int j) {
        return arranged.sign[arranged.order[j]] * result.loadings[i][arranged.order[j]];
    });
    QVERIFY2(loadingError < 1e-6, qPrintable(QString::number(loadingError)));
}

void TestSession::scoresHaveUnitVariance_data()
{
    QTest::addColumn<int>("method");
    QTest::newRow("Pelmora") << int(pelmora::PelmoraRotation);
    QTest::newRow("Varimax") << int(pelmora::VarimaxRotation);
    QTest::newRow("unrotated") << int(pelmora::NoRotation);
}

void TestSession::scoresHaveUnitVariance()
{
    QFETCH(int, method);
    AsciiData data;
    AsciiDataReader reader(sample("box-problem.txt"), nullptr);
    QVERIFY(reader.readFile() && reader.checkConsistency());
    QVERIFY(data.allocate(reader.lineCount(), reader.columnCount()) && reader.getData(data));
    const auto correlations = factoranalysis::correlations(data.matrix(), false);
    const auto decomposition = factoranalysis::decompose(correlations.matrix);
    const auto factors =
        factoranalysis::factors(decomposition, 3, method, correlations.standardised, false);

    const auto& scores = factors.scores;
    QCOMPARE(scores.rows(), 20);
    for (int j = 0; j < 3; ++j) {
        for (int k = 0; k <= j; ++k) {
            double product = 0.0;
            for (int i = 0; i < scores.rows(); ++i)
                product += scores[i][j] * scores[i][k] / scores.rows();
            QVERIFY(std::abs(product - (j == k ? 1.0 : 0.0)) < 1e-9);
        }
        // A loading is the correlation of variable and factor.
        for (int v = 0; v < factors.loadings.rows(); ++v) {
            double correlation = 0.0;
            for (int i = 0; i < scores.rows(); ++i)
                correlation += scores[i][j] * correlations.standardised[i][v] / scores.rows();
            QVERIFY(std::abs(correlation - factors.loadings[v][j]) < 1e-9);
        }
    }
}

/// A raw data session with its pages, as the main window makes it.
class LiveSession
{
public:
    explicit LiveSession(const QString& path) : session(std::make_unique<PelmoraSession>(nullptr))
    {
        session->attachTabWidget(&tabs);
        if (session->loadDataMatrix(path)) {
            session->createDataPage();
            session->createCorrelationPageFromData();
            session->createPcaPage();
        }
    }

    QTabWidget* page(int index) const { return tabs.widget(index)->findChild<QTabWidget*>(); }

    SessionTabWidget tabs;
    std::unique_ptr<PelmoraSession> session;
};

void TestSession::rotationPagesComeInOrder()
{
    LiveSession live(sample("box-problem.txt"));
    live.session->createRotationPages(3, 7);
    live.session->createRotationPages(2, 4 | 1);
    QCOMPARE(titles(live.tabs),
             QStringList({"Raw data", "Correlations", "PCA", "Pelmora[3]", "Varimax[3]",
                          "Initial[3]", "Pelmora[2]", "Initial[2]"}));
    QCOMPARE(titles(*live.page(3)),
             QStringList({"Visualization", "Minimal pairs", "Factor scores"}));
    const auto* pairs = live.tabs.widget(3)->findChild<QTabWidget*>("tabWidgetMinimalPairs");
    QCOMPARE(titles(*pairs),
             QStringList({"Focal factor No. 1", "Focal factor No. 2", "Focal factor No. 3"}));
}

void TestSession::allFactorsCanBeRotated()
{
    LiveSession live(sample("box-problem.txt"));
    const int all = live.session->decomposition().eigenvalues.size();
    live.session->createRotationPages(all, 7);
    QCOMPARE(live.tabs.count(), 6);
}

void TestSession::oneVariableHasNoPairs()
{
    const SampleFile file("one.txt", "1\n2\n4\n");
    LiveSession live(file.path());
    QVERIFY(m_dialogs.takeRecord().isEmpty());
    live.session->createRotationPages(1, 7);
    QCOMPARE(live.tabs.count(), 6);
    QCOMPARE(titles(*live.page(3)), QStringList({"Visualization", "Factor scores"}));
}

void TestSession::aConstantVariableGivesPagesAllTheSame()
{
    const SampleFile file("constant.txt", "1 5 2\n2 5 1\n3 5 5\n4 5 3\n");
    LiveSession live(file.path());
    QCOMPARE(m_dialogs.takeRecord(),
             QStringList("Error|Error: no convergence in finding eigen values."));
    live.session->createRotationPages(2, 7);
    QCOMPARE(live.tabs.count(), 6);
    for (int i = 0; i < live.tabs.count(); ++i)
        QVERIFY(!live.tabs.widget(i)->grab().isNull());
}

void TestSession::orientationThereAndBackIsTheSameToTheBit()
{
    LiveSession live(sample("box-problem.txt"));
    const auto& decomposition = live.session->decomposition();
    const pelmora::Matrix before = decomposition.initialLoadings.clone();
    live.session->setRowWise(true);
    QVERIFY(live.session->isRowWise());
    QVERIFY(!sameBits(before, decomposition.initialLoadings));
    QCOMPARE(titles(live.tabs), QStringList({"Raw data", "Correlations", "PCA"}));
    live.session->createRotationPages(2, 2);
    live.session->setRowWise(false);
    QCOMPARE(titles(live.tabs), QStringList({"Raw data", "Correlations", "PCA", "Varimax[2]"}));
    QVERIFY(sameBits(before, decomposition.initialLoadings));
}

void TestSession::namesReachEveryPageAndExport()
{
    const SampleFile file("data.txt", "1 2 4\n2 1 5\n3 5 1\n4 3 3\nvname\t2\tHeight\n");
    LiveSession live(file.path());
    live.session->createRotationPages(2, 7);
    QCOMPARE(live.session->variableNames(), QStringList({"1", "Height", "3"}));

    QSignalSpy changed(live.session.get(), &SessionFace::variableNamesChanged);
    const QStringList written = {QStringLiteral("Länge"), QStringLiteral("two words"),
                                 QStringLiteral("? third")};
    live.session->setVariableNames({written[0], written[1], QStringLiteral("\u0416 third")});
    QCOMPARE(changed.size(), 1);
    QCOMPARE(live.session->variableNames(), written);

    int tables = 0;
    for (const auto* view : live.tabs.findChildren<QTableView*>()) {
        const auto* model = view->model();
        for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
            const int sections =
                orientation == Qt::Horizontal ? model->columnCount() : model->rowCount();
            QStringList headers;
            for (int i = 0; i < sections; ++i)
                headers << model->headerData(i, orientation).toString().replace('\n', ' ');
            QVERIFY2(!headers.contains("Height"), qPrintable(view->objectName()));
            tables += headers.contains(written[1]) ? 1 : 0;
        }
    }
    // Raw data and their statistics, correlations both ways, eigenvectors, loadings, three
    // diagrams.
    QVERIFY2(tables >= 9, qPrintable(QString::number(tables)));
}

void TestSession::closedPagesLiveOn()
{
    LiveSession live(sample("box-problem.txt"));
    live.session->createRotationPages(2, 2);
    const QPointer<QWidget> page = live.tabs.widget(3);
    emit live.tabs.tabCloseRequested(3);
    QCOMPARE(live.tabs.count(), 3);
    QVERIFY(page);
}

void TestSession::pagesOutliveTheirSession()
{
    LiveSession live(sample("box-problem.txt"));
    live.session->createRotationPages(2, 7);
    live.session.reset();
    for (int i = 0; i < live.tabs.count(); ++i)
        QVERIFY(!live.tabs.widget(i)->grab().isNull());
}

QTEST_MAIN(TestSession)
#include "tst_session.moc"
