// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/errorreport.h"
#include "support/datarows.h"
#include "views/corrform.h"
#include "views/fakesession.h"
#include "views/loadings.h"
#include "views/longwork.h"
#include "views/screeplot.h"
#include "views/viewtest.h"
#include "views/widgets.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTimer>

#include <cmath>

namespace {

enum Tab { Matrix, Adequacy, AntiImage, NumberOfFactors };

const double notANumber = std::nan("");

/// The page "Correlations" of a session with a number of cases; 0: the user may tell.
struct Page : QWidget
{
    explicit Page(pelmora::Matrix correlations, int cases = 0, QVector<QString> names = {})
    {
        for (int i = int(names.size()); i < correlations.rows(); ++i)
            names << QString::number(i + 1);
        matrix.setMatrix(std::move(correlations));
        matrix.setNames(VariableNames::fromTexts(names));
        session->data.setNames(matrix.names());
        session->eigenpairs = pelmora::decompose(matrix.matrix());
        session->cases = cases;
        page.fill(matrix);
    }

    void choose(Tab tab) { find<QTabWidget>("tabWidgetCorrelations")->setCurrentIndex(tab); }
    template <typename Widget>
    Widget* find(const char* name) const
    {
        return findChild<Widget*>(name);
    }
    QString text(const char* label) const { return find<QLabel>(label)->text(); }
    QString reason(const char* label) const
    {
        return text(label).section("cannot be computed: ", 1);
    }
    QStringList table(const char* name) const { return shown(find<QTableView>(name)); }
    bool hasNumbers(const char* name) const
    {
        const QStringList lines = table(name).mid(1);
        return std::any_of(lines.begin(), lines.end(),
                           [](const QString& line) { return line.contains('.'); });
    }

    std::unique_ptr<FakeSession> session = std::make_unique<FakeSession>();
    CorrelationData matrix;
    CorrForm page{session.get(), this};
};

pelmora::Matrix threeVariables()
{
    return matrixOf({{1, 0.5, 0}, {0.5, 1, 0}, {0, 0, 1}});
}

} // namespace

class TestAdequacyPages : public ViewTest
{
    Q_OBJECT

private slots:
    void everyTabIsComputedWhenItIsShown()
    {
        Page page(threeVariables(), 100);
        QCOMPARE(page.find<QTabWidget>("tabWidgetCorrelations")->currentIndex(), int(Matrix));
        for (const char* name : {"tableAdequacy", "tableAntiImage", "tableNumberOfFactors"})
            QCOMPARE(page.table(name).size(), 1);
        page.choose(Adequacy);
        QCOMPARE(page.text("labelKmo"),
                 "Kaiser-Meyer-Olkin measure of sampling adequacy: 0.50 (miserable)");
        QCOMPARE(page.text("labelBartlett"), "Bartlett's test of sphericity: chi-square 27.95, 3 "
                                             "degrees of freedom, p < 0.01");
        QCOMPARE(page.text("labelDeterminant"), "Determinant: 0.750 (natural logarithm -0.29)");
        QCOMPARE(page.text("labelRatio"), "Largest / smallest eigenvalue: 3.00");
        QCOMPARE(page.table("tableAdequacy"),
                 QStringList({"|MSA|Squared multiple\ncorrelation|Note", "1|0.50|0.25|",
                              "2|0.50|0.25|", "3||0.00|all correlations are 0"}));
        page.choose(AntiImage);
        QCOMPARE(page.table("tableAntiImage"),
                 QStringList({"|1|2|3", "1|0.50|-0.50|0.00", "2|-0.50|0.50|0.00", "3|0.00|0.00|"}));
        page.choose(NumberOfFactors);
        QCOMPARE(page.table("tableNumberOfFactors"),
                 QStringList({"|Eigenvalue|Random,\nmean|Random,\n95 %|Empirical "
                              "Kaiser\nreference|MAP,\nsquares|MAP,\n4th powers",
                              "0|||||0.08|0.02", "1|1.50|||1.38|0.33|0.33", "2|1.00|||1.03||",
                              "3|0.50|||1.00||"}));
    }

    void casesAreTakenFromTheDataOrTold()
    {
        Page raw(threeVariables(), 100);
        QCOMPARE(raw.find<QSpinBox>("spinBoxCases")->text(), "100");
        QVERIFY(raw.find<QSpinBox>("spinBoxCases")->isReadOnly());

        Page page(threeVariables());
        auto* cases = page.find<QSpinBox>("spinBoxCases");
        const auto* parallel = page.find<QPushButton>("pushButtonParallel");
        page.choose(Adequacy);
        page.choose(NumberOfFactors);
        QCOMPARE(cases->text(), "unknown");
        const QString unknown = "the number of cases is not known";
        for (const char* label : {"labelBartlett", "labelParallel", "labelKaiser"})
            QCOMPARE(page.reason(label), unknown);
        QVERIFY(!parallel->isEnabled());

        cases->setValue(2);
        QCOMPARE(page.reason("labelBartlett"), "there are too few cases (4 are needed)");
        QCOMPARE(page.reason("labelParallel"), "there are too few cases (3 are needed)");
        QVERIFY(!parallel->isEnabled());
        cases->setValue(100);
        QVERIFY(page.text("labelBartlett").contains("chi-square 27.95"));
        QCOMPARE(page.text("labelKaiser"), "Empirical Kaiser criterion: 1");
        QCOMPARE(page.text("labelParallel"), "Parallel analysis: not computed yet");
        click(page, "pushButtonParallel");
        page.choose(Adequacy); // leaving the tab loses nothing
        page.choose(NumberOfFactors);
        QCOMPARE(page.text("labelParallel"), "Parallel analysis (1000 random matrices, 100 cases): "
                                             "1 by the 95 % quantile, 2 by the mean");
        QVERIFY(!page.table("tableNumberOfFactors").at(2).contains("||"));
        cases->setValue(cases->maximum());
        QCOMPARE(cases->value(), 2147483647);
        QCOMPARE(page.text("labelParallel"), "Parallel analysis: not computed yet");
        QVERIFY(page.table("tableNumberOfFactors").at(2).startsWith("1|1.50|||1.00|"));
    }

    void manyVariablesGetFewRandomMatrices()
    {
        for (const int variables : {99, 100}) {
            pelmora::Matrix identity(variables, variables);
            for (int i = 0; i < variables; ++i)
                for (int j = 0; j < variables; ++j)
                    identity[i][j] = i == j;
            Page page(std::move(identity));
            page.choose(NumberOfFactors);
            QCOMPARE(page.find<QSpinBox>("spinBoxRandom")->value(), variables < 100 ? 1000 : 100);
        }
    }

    void aParallelAnalysisMayBeCancelledOrLoseItsSession()
    {
        Page page(threeVariables(), 100);
        const auto compute = [&page](const std::function<void()>& meanwhile) {
            QTimer timer;
            connect(&timer, &QTimer::timeout, meanwhile);
            timer.start(0);
            const auto patience = std::exchange(LongWork::patience(), std::chrono::milliseconds(0));
            click(page, "pushButtonParallel");
            LongWork::patience() = patience;
        };
        page.choose(NumberOfFactors);
        const QStringList before = page.table("tableNumberOfFactors");
        compute([] {
            if (auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()))
                dialog->cancel();
        });
        QCOMPARE(page.text("labelParallel"), "Parallel analysis: not computed yet");
        QCOMPARE(page.table("tableNumberOfFactors"), before);
        compute([&page] { page.session.reset(); });
        QCOMPARE(page.table("tableNumberOfFactors").size(), 1);
        page.choose(Adequacy);
        QCOMPARE(page.text("labelKmo"), "");
    }

    void noNumberWithoutMeaning_data()
    {
        // With an empty reason the numbers of factors are computed all the same.
        const DataRows<std::shared_ptr<pelmora::Matrix>, QString, QString> rows(
            "matrix", "adequacy", "factors");
        const auto row = [&rows](const char* name, pelmora::Matrix matrix, const QString& adequacy,
                                 const QString& factors) {
            rows(name, std::make_shared<pelmora::Matrix>(std::move(matrix)), adequacy, factors);
        };
        const QString notNumbers = "it holds values that are not numbers";
        const QString diagonal = "the diagonal is not 1";
        const QString tooFew = "there are too few variables (2 are needed)";
        row("constant variable", matrixOf({{1, notANumber}, {notANumber, 1}}), notNumbers,
            notNumbers);
        row("covariances", matrixOf({{4, 1}, {1, 2}}), diagonal, diagonal);
        row("one variable", matrixOf({{1}}), tooFew, tooFew);
        row("beyond 1", matrixOf({{1, 0.9, 0.3}, {0.9, 1, 0.8}, {0.3, 0.8, 1}}),
            "the matrix is not positive definite (smallest eigenvalue -0.0651)", "");
        row("doubled", matrixOf({{1, 1}, {1, 1}}),
            "the matrix is singular (smallest eigenvalue 0.00): some variables are sums of others",
            "");
    }

    void noNumberWithoutMeaning()
    {
        QFETCH(std::shared_ptr<pelmora::Matrix>, matrix);
        QFETCH(QString, adequacy);
        QFETCH(QString, factors);
        pelmora::setErrorReport([](const char*) {}); // NaN does not converge
        Page page(matrix->clone(), 100);
        pelmora::setErrorReport(nullptr);
        page.choose(Adequacy);
        for (const char* label :
             {"labelKmo", "labelBartlett", "labelDeterminant", "labelRatio", "labelAntiImage"})
            QCOMPARE(page.reason(label), adequacy);
        QVERIFY(!page.hasNumbers("tableAdequacy") && !page.hasNumbers("tableAntiImage"));
        page.choose(NumberOfFactors);
        for (const char* label : {"labelParallel", "labelKaiser", "labelPartial"})
            QCOMPARE(page.reason(label), factors);
        QVERIFY(page.text("labelCount").startsWith("Eigenvalues of at least 1: "));
        QCOMPARE(page.find<QPushButton>("pushButtonParallel")->isEnabled(), factors.isEmpty());
    }

    void namesFollowEdits()
    {
        Page page(threeVariables(), 100, {"a", "b", "c"});
        page.choose(Adequacy);
        page.session->setVariableNames({"a", "b", "new"});
        QVERIFY(page.table("tableAdequacy").last().startsWith("new|"));
        QCOMPARE(page.table("tableAntiImage").first(), "|a|b|new");
    }

    void toolTipsTellTheWholeNumber()
    {
        Page page(matrixOf({{1, 0.123456789012, 0}, {0.123456789012, 1, 0}, {0, 0, 1}}), 100);
        const auto toolTip = [&page](const char* table, int row, int column) {
            return page.find<QTableView>(table)
                ->model()
                ->index(row, column)
                .data(Qt::ToolTipRole)
                .toString();
        };
        QCOMPARE(toolTip("tableCorrelations", 0, 1), "0.123456789012");
        page.choose(Adequacy);
        QVERIFY(toolTip("tableAntiImage", 0, 1).startsWith("-0.12345678901"));
        QVERIFY(toolTip("tableAdequacy", 0, 1).startsWith("0.015241578"));
        QCOMPARE(toolTip("tableAdequacy", 2, 0), "");
        QCOMPARE(toolTip("tableAdequacy", 2, 2), "");
    }

    void scalesAreRoundAndHoldEveryValue()
    {
        const QRectF area(10, 20, 300, 200);
        const ScreeScale scale({{8.13, notANumber, -0.3}, {}, {}}, area);
        QCOMPARE(scale.valueTicks(), QVector<double>({-2, 0, 2, 4, 6, 8, 10}));
        QCOMPARE(scale.at(0, 10), QPointF(60, 20));
        QCOMPARE(scale.at(2, -2), QPointF(260, 220));
        QCOMPARE(scale.placeTicks(40), QVector<int>({1, 2, 3}));
        const ScreeScale singular({{5, -1e-15}, {}, {}}, area);
        QCOMPARE(singular.valueTicks(), QVector<double>({0, 1, 2, 3, 4, 5}));
        const ScreeScale many({QVector<double>(500, 1.0), {}, {}}, area);
        QCOMPARE(many.placeTicks(40), QVector<int>({100, 200, 300, 400, 500}));
        QVERIFY(ScreeScale({}, area).valueTicks().size() > 1);
    }

    void thePlotIsCopiedInThePalettesColours()
    {
        ScreePlot plot;
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::black);
        palette.setColor(QPalette::Text, Qt::yellow);
        plot.setPalette(palette);
        plot.setCurves({{3, 0.5, notANumber}, {2, 1, 0.5}, {}});
        plot.resize(300, 200);
        QCOMPARE(plot.actions().value(0)->text(), "Copy");
        plot.actions().value(0)->trigger();
        const QImage picture = QApplication::clipboard()->image();
        QCOMPARE(picture.size(), plot.size() * plot.devicePixelRatio());
        QCOMPARE(picture.pixelColor(1, 1), QColor(Qt::black));
        int yellow = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                yellow += picture.pixelColor(x, y) == QColor(Qt::yellow);
        QVERIFY2(yellow > 50, qPrintable(QString::number(yellow)));
    }
};

QTEST_MAIN(TestAdequacyPages)
#include "tst_adequacypages.moc"
