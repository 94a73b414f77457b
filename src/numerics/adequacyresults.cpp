// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/adequacyresults.h"

namespace pelmora {

AdequacyResults adequacyResults(const Matrix& r, const Decomposition& d, int cases)
{
    AdequacyResults results;
    results.measures = adequacy(r, d);
    results.toInverse = obstacleToInverse(r, d.eigenvalues);
    results.bartlett = bartlettTest(r, d, cases);
    results.eigenvaluesOfAtLeastOne = countEigenvaluesOfAtLeastOne(d.eigenvalues);
    results.toComparison = obstacleToComparison(r, d.eigenvalues, cases);
    if (!results.toComparison)
        results.random = parallelAnalysis(r.rows(), cases, proposedMatrices(r.rows()));
    if (results.random) {
        results.byQuantile = countLeadingAbove(d.eigenvalues, results.random->quantile95);
        results.byMean = countLeadingAbove(d.eigenvalues, results.random->mean);
    }
    results.kaiser = empiricalKaiserCriterion(r, d, cases);
    results.partial = minimumAveragePartial(r, d);
    return results;
}

} // namespace pelmora
