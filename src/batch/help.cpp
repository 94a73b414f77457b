// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/help.h"

#include <QCoreApplication>

namespace batch {

QString analyseHelp()
{
    return QCoreApplication::translate("Batch",
                                       R"(Usage: pelmora-batch analyse FILE... [OPTIONS]

Correlates, decomposes and rotates each FILE and writes the results beside it.

What is read:
  --correlations         FILE holds correlations, not data
  --row-wise             each line of FILE is a variable, not a case
  --cases N              the number of cases behind correlations

What is computed:
  --factors N            so many factors; or
  --factors eigenvalues  as many as eigenvalues are at least 1, at least 2 (preset); or
  --factors parallel     as parallel analysis tells by its 95 % quantile, at least 1
  --rotation LIST        of pelmora, varimax, initial (preset: all three)

What is written:
  --out DIR              results go to DIR, which must exist (preset: beside FILE)
  --write LIST           of cor, eig, vec, ini, loadings, scores, pairs, adequacy, diagram
                         (preset: loadings; with --json or --report nothing else)
  --diagram KIND         png (preset), pdf or svg; implies --write diagram
  --precision P          decimals of text files, 0 to 9 (preset 9); of diagrams and reports too
                         where it is given (preset 2)
  --json FILE            everything that was computed; - is standard output
  --report FILE          to be read: .html, .pdf or .md

  --quiet                no progress and no summary; messages stay
  --version, --help

Ends with 0: all is written; 1: an input was refused; 2: wrong usage; 3: a file could not be
written; 4: a number is not finite or the eigenvalues did not converge. The largest counts.
)");
}

} // namespace batch
