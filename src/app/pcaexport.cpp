// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/pcaexport.h"

#include "numerics/initialfactors.h"
#include "settings/numbertext.h"
#include "settings/settings.h"

#include <QString>

#include <ostream>

namespace pcaexport {

namespace {

std::string number(double x, unsigned decimals)
{
    return numbertext::fixed(x, decimals).toStdString();
}

/// A double quote inside a name would end it for the reading program, so it becomes a single one.
std::string quoted(QString name)
{
    return '"' + name.replace(u'"', u'\'').toLatin1().toStdString() + '"';
}

} // namespace

void writeEigenvalues(std::ostream& out, const pelmora::Vector& eigenvalues)
{
    const int n = eigenvalues.size();
    pelmora::Vector variance(n);
    pelmora::Vector cumulative(n);
    pelmora::explained_variance(eigenvalues.data(), n, variance.data(), cumulative.data());

    const unsigned decimals = settings::precision();
    out << "Factor\tEigenvalue\tVariance\tCumulative\n";
    for (int j = 0; j < n; ++j)
        out << j + 1 << '\t' << number(eigenvalues[j], decimals) << '\t'
            << number(variance[j], decimals) << '\t' << number(cumulative[j], decimals) << '\n';
}

void writeFactorMatrix(std::ostream& out, const pelmora::Matrix& values,
                       const QVector<QString>& names)
{
    const unsigned decimals = settings::precision();
    out << "Variable";
    for (int j = 0; j < values.columns(); ++j)
        out << "\tF" << j + 1;
    out << '\n';
    for (int i = 0; i < values.rows(); ++i) {
        out << quoted(names.value(i));
        for (int j = 0; j < values.columns(); ++j)
            out << '\t' << number(values[i][j], decimals);
        out << '\n';
    }
}

} // namespace pcaexport
