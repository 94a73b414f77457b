// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/adequacytext.h"

#include "output/numbertext.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace adequacytext {

namespace {

using pelmora::Computed;
using pelmora::Obstacle;
using pelmora::Reason;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Adequacy)
};

QString cannotBeComputed(const Obstacle& obstacle)
{
    return Text::tr("cannot be computed: %1").arg(reason(obstacle));
}

/// A probability with the sign before it: "= 0.04", or "< 0.01" where it would round to 0.
QString probability(double p, unsigned decimals)
{
    if (numbertext::rounded(p, decimals) > 0.0)
        return Text::tr("= %1").arg(numbertext::fixed(p, decimals));
    const double unit = std::pow(10.0, -static_cast<int>(std::min(decimals, 9U)));
    return Text::tr("< %1").arg(numbertext::fixed(unit, decimals));
}

/// Measures are judged as they would read with all decimals: with two variables the measure is
/// exactly .5, give or take a rounding error.
double judged(double measure)
{
    return numbertext::rounded(measure, 9);
}

constexpr double acceptable = 0.5;

/// Three significant digits, with an exponent below 1e-4: the smallest eigenvalue of a singular
/// matrix is only a rounding error such as -8.73e-16.
QString smallestEigenvalue(double x)
{
    constexpr double leastPlain = 1e-4;
    const bool isPlain = x == 0.0 || std::abs(x) >= leastPlain;
    return isPlain ? threeDigits(x) : QString::number(x, 'e', 2);
}

} // namespace

QString kmo(const Computed<double>& kmo, unsigned decimals)
{
    if (kmo.obstacle)
        return Text::tr("Kaiser-Meyer-Olkin measure of sampling adequacy: %1")
            .arg(cannotBeComputed(kmo.obstacle));
    return Text::tr("Kaiser-Meyer-Olkin measure of sampling adequacy: %1 (%2)")
        .arg(numbertext::fixed(kmo.value, decimals), kaisersWord(kmo.value));
}

QString bartlett(const Computed<pelmora::Bartlett>& test, unsigned decimals)
{
    if (test.obstacle)
        return Text::tr("Bartlett's test of sphericity: %1").arg(cannotBeComputed(test.obstacle));
    return Text::tr("Bartlett's test of sphericity: chi-square %1, %2 degrees of freedom, p %3")
        .arg(numbertext::fixed(test.value.chiSquare, decimals),
             numbertext::fixed(test.value.degrees, 0), probability(test.value.p, decimals));
}

QString determinant(const Computed<double>& lnDeterminant, unsigned decimals)
{
    if (lnDeterminant.obstacle)
        return Text::tr("Determinant: %1").arg(cannotBeComputed(lnDeterminant.obstacle));
    const double value = std::exp(lnDeterminant.value);
    return Text::tr("Determinant: %1 (natural logarithm %2)")
        .arg(value < 1e-12 ? Text::tr("below %1").arg(numbertext::shortest(1e-12).c_str())
                           : threeDigits(value),
             numbertext::fixed(lnDeterminant.value, decimals));
}

QString eigenvalueRatio(const Computed<double>& ratio, unsigned decimals)
{
    return Text::tr("Largest / smallest eigenvalue: %1")
        .arg(ratio.obstacle ? cannotBeComputed(ratio.obstacle)
                            : numbertext::fixed(ratio.value, decimals));
}

QString antiImage(const Obstacle& obstacle)
{
    if (!obstacle)
        return QString();
    return Text::tr("Anti-image correlations: %1").arg(cannotBeComputed(obstacle));
}

QString eigenvaluesOfAtLeastOne(int count)
{
    return Text::tr("Eigenvalues of at least 1: %1").arg(count);
}

QString parallelAnalysis(const Obstacle& obstacle, const pelmora::RandomEigenvalues* random,
                         const pelmora::Vector& eigenvalues)
{
    if (obstacle)
        return Text::tr("Parallel analysis: %1").arg(cannotBeComputed(obstacle));
    if (!random)
        return Text::tr("Parallel analysis: not computed yet");
    return Text::tr("Parallel analysis (%1 random matrices, %2 cases): %3 by the 95 % quantile, "
                    "%4 by the mean")
        .arg(random->matrices)
        .arg(random->cases)
        .arg(pelmora::countLeadingAbove(eigenvalues, random->quantile95))
        .arg(pelmora::countLeadingAbove(eigenvalues, random->mean));
}

QString empiricalKaiser(const Computed<pelmora::EmpiricalKaiser>& criterion)
{
    return Text::tr("Empirical Kaiser criterion: %1")
        .arg(criterion.obstacle ? cannotBeComputed(criterion.obstacle)
                                : QString::number(criterion.value.factors));
}

QString minimumAveragePartial(const Computed<pelmora::MinimumAveragePartial>& map)
{
    if (map.obstacle)
        return Text::tr("Minimum average partial correlation: %1")
            .arg(cannotBeComputed(map.obstacle));
    return Text::tr("Minimum average partial correlation: %1 (squares), %2 (fourth powers)")
        .arg(map.value.bySquares)
        .arg(map.value.byFourthPowers);
}

QString reason(const Obstacle& obstacle)
{
    switch (obstacle.reason) {
    case Reason::None:
        break;
    case Reason::NotNumbers:
        return Text::tr("it holds values that are not numbers");
    case Reason::DiagonalNotOne:
        return Text::tr("the diagonal is not 1");
    case Reason::TooFewVariables:
        return Text::tr("there are too few variables (%1 are needed)")
            .arg(numbertext::fixed(obstacle.number, 0));
    case Reason::NoCorrelations:
        return Text::tr("all correlations are 0");
    case Reason::NotPositiveDefinite:
        return Text::tr("the matrix is not positive definite (smallest eigenvalue %1)")
            .arg(smallestEigenvalue(obstacle.number));
    case Reason::Singular:
        return Text::tr("the matrix is singular (smallest eigenvalue %1): some variables are sums "
                        "of others")
            .arg(smallestEigenvalue(obstacle.number));
    case Reason::CasesUnknown:
        return Text::tr("the number of cases is not known");
    case Reason::TooFewCases:
        return Text::tr("there are too few cases (%1 are needed)")
            .arg(numbertext::fixed(obstacle.number, 0));
    }
    return QString();
}

QString kaisersWord(double measure)
{
    struct Step
    {
        double from;
        const char* word;
    };
    static constexpr std::array<Step, 5> steps = {
        {{0.9, QT_TRANSLATE_NOOP("Adequacy", "marvelous")},
         {0.8, QT_TRANSLATE_NOOP("Adequacy", "meritorious")},
         {0.7, QT_TRANSLATE_NOOP("Adequacy", "middling")},
         {0.6, QT_TRANSLATE_NOOP("Adequacy", "mediocre")},
         {acceptable, QT_TRANSLATE_NOOP("Adequacy", "miserable")}}};
    for (const Step& step : steps)
        if (judged(measure) >= step.from)
            return Text::tr(step.word);
    return Text::tr("unacceptable");
}

QString note(double msa)
{
    if (std::isnan(msa))
        return reason({Reason::NoCorrelations});
    return judged(msa) < acceptable ? Text::tr("unacceptable") : QString();
}

QString threeDigits(double x)
{
    // Rounding may lead to one digit more before the point: 0.9996 is 1.00.
    const QString digits = QString::number(x, 'e', 2);
    const int exponent = digits.mid(digits.indexOf(u'e') + 1).toInt();
    return QString::number(digits.toDouble(), 'f', std::max(0, 2 - exponent));
}

} // namespace adequacytext
