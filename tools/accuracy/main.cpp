// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

/// Measures the accuracy of the numerics; accuracy.bash calls it and the scripts beside it in turn.

#include "eigentables.h"
#include "rotationtable.h"
#include "solvers.h"

#include <cstring>
#include <exception>
#include <iostream>

using namespace pelmora;

namespace {

void prepare(const std::filesystem::path& work)
{
    writeGradedMatrices(work);
    writeLoadings(work, rotationMatrices(publishedMatrices(PELMORA_DATA_DIR, work)));
}

void report(std::ostream& out, const std::filesystem::path& work)
{
    std::vector<NamedMatrix> matrices = publishedMatrices(PELMORA_DATA_DIR, work);
    const std::vector<NamedMatrix> forRotation = rotationMatrices(matrices);
    for (NamedMatrix& matrix : generatedMatrices())
        matrices.push_back(std::move(matrix));

    out << "LAPACK " << lapackVersion() << ", " << PELMORA_COMPILER << ".\n\n"
        << "### Eigenvectors: residual and orthogonality\n\n";
    writeEigenTable(out, matrices);
    out << "\n### Eigenvalues of graded covariances: worst relative error\n\n";
    writeGradedTable(out, work);
    out << "\n### Rotations\n\n";
    writeRotationTable(out, work, forRotation);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc == 3 && std::strcmp(argv[1], "prepare") == 0) {
            prepare(argv[2]);
        } else if (argc == 3 && std::strcmp(argv[1], "report") == 0) {
            report(std::cout, argv[2]);
        } else {
            std::cerr << "usage: pelmora_accuracy prepare|report FOLDER\n";
            return 2;
        }
    } catch (const std::exception& fault) {
        std::cerr << fault.what() << '\n';
        return 1;
    }
    return 0;
}
