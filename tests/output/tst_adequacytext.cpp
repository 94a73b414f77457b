// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/adequacytext.h"

#include "support/datarows.h"

#include <QTest>

#include <algorithm>
#include <cmath>

using namespace pelmora;

namespace {

Vector vector(const std::vector<double>& values)
{
    Vector result(int(values.size()));
    std::copy(values.begin(), values.end(), result.begin());
    return result;
}

} // namespace

class TestAdequacyText : public QObject
{
    Q_OBJECT

private slots:
    void linesTellNumbers_data()
    {
        const DataRows<QString, QString> row("line", "expected");
        using namespace adequacytext;
        const Obstacle singular{Reason::Singular, -2.738e-16};
        const QString why = "cannot be computed: the matrix is singular (smallest eigenvalue "
                            "-2.74e-16): some variables are sums of others";

        row("KMO", kmo({{}, 0.8813}, 2),
            "Kaiser-Meyer-Olkin measure of sampling adequacy: 0.88 (meritorious)");
        row("no KMO", kmo({singular}, 2),
            "Kaiser-Meyer-Olkin measure of sampling adequacy: " + why);
        const QString test =
            "Bartlett's test of sphericity: chi-square %1, %2 degrees of freedom, p %3";
        row("Bartlett", bartlett({{}, {33.125, 21, -3.2, 0.0408}}, 2),
            test.arg("33.13", "21", "= 0.04"));
        row("p small", bartlett({{}, {18146.07, 300, -8315.2, 0.0}}, 2),
            test.arg("18146.07", "300", "< 0.01"));
        row("p small, 9 decimals", bartlett({{}, {1, 1, -22, 4e-10}}, 12),
            test.arg("1.000000000", "1", "< 0.000000001"));
        row("p small, no decimals", bartlett({{}, {1, 1, -1, 0.4}}, 0), test.arg("1", "1", "< 1"));
        row("no Bartlett", bartlett({{Reason::TooFewCases, 201}, {}}, 2),
            "Bartlett's test of sphericity: cannot be computed: there are too few cases (201 are "
            "needed)");
        row("determinant", determinant({{}, -11.4367092231635}, 3),
            "Determinant: 0.0000108 (natural logarithm -11.437)");
        row("determinant small", determinant({{}, -911.14}, 2),
            "Determinant: below 0.000000000001 (natural logarithm -911.14)");
        row("no determinant", determinant({singular}, 2), "Determinant: " + why);
        row("ratio", eigenvalueRatio({{}, 47.163}, 1), "Largest / smallest eigenvalue: 47.2");
        row("no ratio", eigenvalueRatio({singular}, 1), "Largest / smallest eigenvalue: " + why);

        row("count", eigenvaluesOfAtLeastOne(5), "Eigenvalues of at least 1: 5");
        row("criterion", empiricalKaiser({{}, {{}, 4}}), "Empirical Kaiser criterion: 4");
        row("no criterion", empiricalKaiser({{Reason::CasesUnknown}, {}}),
            "Empirical Kaiser criterion: cannot be computed: the number of cases is not known");
        row("MAP", minimumAveragePartial({{}, {{}, {}, 4, 3}}),
            "Minimum average partial correlation: 4 (squares), 3 (fourth powers)");
        row("no MAP", minimumAveragePartial({{Reason::DiagonalNotOne}, {}}),
            "Minimum average partial correlation: cannot be computed: the diagonal is not 1");
    }

    void linesTellNumbers()
    {
        QFETCH(QString, line);
        QTEST(line, "expected");
    }

    void everyReasonHasItsText_data()
    {
        QTest::addColumn<int>("reason");
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("expected");
        const auto row = [](Reason reason, double number, const char* text) {
            QTest::newRow(text) << int(reason) << number << QString(text);
        };
        row(Reason::NotNumbers, 0, "it holds values that are not numbers");
        row(Reason::DiagonalNotOne, 0, "the diagonal is not 1");
        row(Reason::TooFewVariables, 2, "there are too few variables (2 are needed)");
        row(Reason::NoCorrelations, 0, "all correlations are 0");
        row(Reason::NotPositiveDefinite, -0.06508,
            "the matrix is not positive definite (smallest eigenvalue -0.0651)");
        row(Reason::Singular, 0,
            "the matrix is singular (smallest eigenvalue 0.00): some variables are sums of others");
        row(Reason::CasesUnknown, 0, "the number of cases is not known");
        row(Reason::TooFewCases, 3, "there are too few cases (3 are needed)");
    }

    void everyReasonHasItsText()
    {
        QFETCH(int, reason);
        QFETCH(double, number);
        QTEST(adequacytext::reason({Reason(reason), number}), "expected");
    }

    void measuresAreJudgedByNineDecimals_data()
    {
        const DataRows<double, QString, QString> row("measure", "word", "note");
        row(".9", 0.9 - 1e-12, "marvelous", "");
        row(".8", 0.8999, "meritorious", "");
        row(".7", 0.7, "middling", "");
        row(".6", 0.6, "mediocre", "");
        row("two variables", 0.5 - 1e-16, "miserable", "");
        row("below", 0.4999, "unacceptable", "unacceptable");
        row("none", std::nan(""), "unacceptable", "all correlations are 0");
    }

    void measuresAreJudgedByNineDecimals()
    {
        QFETCH(double, measure);
        QTEST(adequacytext::kaisersWord(measure), "word");
        QTEST(adequacytext::note(measure), "note");
    }

    void threeDigitsAreKept_data()
    {
        const DataRows<double, QString> row("value", "text");
        row("one", 1.0, "1.00");
        row("rounded up to one", 0.9996, "1.00");
        row("zeros", 0.75, "0.750");
        row("negative", -0.0650807, "-0.0651");
        row("smallest", 1e-12, "0.00000000000100");
        row("large", 123456.0, "123000");
    }

    void threeDigitsAreKept()
    {
        QFETCH(double, value);
        QTEST(adequacytext::threeDigits(value), "text");
    }

    void parallelAnalysisTellsWhatItWas()
    {
        const Vector eigenvalues = vector({2.0, 1.2, 0.8});
        const RandomEigenvalues random{1000, 2147483647, vector({1.1, 1, 0.9}),
                                       vector({1.3, 1.2, 1})};
        QCOMPARE(
            adequacytext::parallelAnalysis({}, &random, eigenvalues),
            "Parallel analysis (1000 random matrices, 2147483647 cases): 1 by the 95 % quantile, "
            "2 by the mean");
        QCOMPARE(adequacytext::parallelAnalysis({}, nullptr, eigenvalues),
                 "Parallel analysis: not computed yet");
        QCOMPARE(adequacytext::parallelAnalysis({Reason::TooFewCases, 3}, nullptr, eigenvalues),
                 "Parallel analysis: cannot be computed: there are too few cases (3 are needed)");
    }
};

QTEST_GUILESS_MAIN(TestAdequacyText)
#include "tst_adequacytext.moc"
