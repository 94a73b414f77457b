// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/adequacyfile.h"

#include "output/adequacytext.h"
#include "output/eigentext.h"
#include "output/numbertext.h"

#include <cmath>
#include <ostream>

namespace {

using pelmora::Obstacle;
using pelmora::Vector;

class Table
{
public:
    Table(std::ostream& out, unsigned decimals) : m_out(out), m_decimals(decimals)
    {
        out << "Quantity\tNumber\tVariable\tValue\tNote\n";
    }

    void add(const char* quantity, const Obstacle& obstacle, double value,
             const QString& note = QString())
    {
        m_out << quantity << "\t\t\t";
        finish(obstacle ? std::nan("") : value, obstacle ? adequacytext::reason(obstacle) : note);
    }

    /// @param first  the number of the first value
    void add(const char* quantity, const Obstacle& obstacle, const Vector& values, int first = 1)
    {
        if (obstacle)
            add(quantity, obstacle, 0.0);
        for (int i = 0; i < values.size() && !obstacle; ++i) {
            m_out << quantity << '\t' << first + i << "\t\t";
            finish(values[i], QString());
        }
    }

    void addOfVariables(const char* quantity, const Obstacle& obstacle, const Vector& values,
                        const VariableNames& names, QString (*note)(double))
    {
        if (obstacle)
            add(quantity, obstacle, 0.0);
        for (int i = 0; i < values.size() && !obstacle; ++i) {
            m_out << quantity << '\t' << i + 1 << '\t'
                  << quotedName(names[static_cast<std::size_t>(i)]) << '\t';
            finish(values[i], note(values[i]));
        }
    }

private:
    void finish(double value, const QString& note)
    {
        if (!std::isnan(value))
            m_out << numbertext::fixedBytes(value, m_decimals);
        m_out << '\t' << note.toLatin1().toStdString() << '\n';
    }

    std::ostream& m_out;
    const unsigned m_decimals;
};

QString noNote(double)
{
    return QString();
}

} // namespace

void writeAdequacy(std::ostream& out, const pelmora::AdequacyResults& results,
                   const VariableNames& names, unsigned decimals)
{
    const auto& [measures, toInverse, bartlett, atLeastOne, toComparison, random, byQuantile,
                 byMean, kaiser, partial] = results;
    Table table(out, decimals);
    table.add("KMO", measures.kmo.obstacle, measures.kmo.value,
              adequacytext::kaisersWord(measures.kmo.value));
    table.addOfVariables("MSA", toInverse, measures.msa, names, adequacytext::note);
    table.addOfVariables("SquaredMultipleCorrelation", toInverse,
                         measures.squaredMultipleCorrelations, names, noNote);
    table.add("BartlettChiSquare", bartlett.obstacle, bartlett.value.chiSquare);
    table.add("BartlettDegreesOfFreedom", bartlett.obstacle, bartlett.value.degrees);
    table.add("BartlettP", bartlett.obstacle, bartlett.value.p);
    table.add("BartlettLnP", bartlett.obstacle, bartlett.value.lnP);
    table.add("LnDeterminant", measures.lnDeterminant.obstacle, measures.lnDeterminant.value);
    table.add("LargestBySmallest", measures.eigenvalueRatio.obstacle,
              measures.eigenvalueRatio.value);
    table.add("EigenvaluesOfAtLeastOne", {}, atLeastOne);
    table.add("ParallelByQuantile", toComparison, byQuantile);
    table.add("ParallelByMean", toComparison, byMean);
    if (random) {
        table.add("RandomMatrices", {}, random->matrices);
        table.add("RandomCases", {}, random->cases);
        table.add("RandomMean", {}, random->mean);
        table.add("RandomQuantile", {}, random->quantile95);
    }
    table.add("EmpiricalKaiser", kaiser.obstacle, kaiser.value.factors);
    table.add("EmpiricalKaiserReference", kaiser.obstacle, kaiser.value.references);
    table.add("PartialBySquares", partial.obstacle, partial.value.bySquares);
    table.add("PartialByFourthPowers", partial.obstacle, partial.value.byFourthPowers);
    table.add("PartialSquares", partial.obstacle, partial.value.squares, 0);
    table.add("PartialFourthPowers", partial.obstacle, partial.value.fourthPowers, 0);
}
