// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// A correlation file, from its bytes to the container, and back through the export. The first byte
// chooses the decimals.

#include "fuzz/fuzzsupport.h"
#include "input/asciicorrreader.h"
#include "input/correlationdata.h"
#include "output/correlationtext.h"
#include "output/numbertext.h"

#include <cmath>
#include <sstream>

namespace {

bool isFinite(double* cell)
{
    return std::isfinite(*cell);
}

/// No message: all is well so far, or the session tells.
bool load(const QString& path, CorrelationData& data)
{
    AsciiCorrReader reader(path, nullptr);
    const bool read = reader.read();
    const QStringList reports = takeReports();
    require(read ? reports.isEmpty() : reports.size() == 1 || reports.size() == 2,
            "a refused file is told of");
    require(read || reports.last().endsWith(QStringLiteral("correlation matrix")), "in order");
    if (!read)
        return false;
    require(reader.checkConsistency(), "nothing to check");
    require(data.allocate(reader.lineCount(), reader.lineCount()), "there is memory");
    data.forEachCell([](double* cell) {
        *cell = std::nan("");
        return true;
    });
    if (!reader.getData(data))
        return false;
    require(data.rows() == data.cols() && data.rows() > 0, "a square");
    require(data.forEachCell(isFinite), "of numbers");
    require(data.names().size() == data.rows(), "with names");
    return true;
}

void requireReadBack(const CorrelationData& data, unsigned decimals)
{
    std::ostringstream out;
    writeCorrelations(out, data.matrix(), data.names(), decimals);
    const std::string bytes = out.str();
    CorrelationData back;
    require(load(fileOf(bytes.data(), bytes.size()), back), "the export reads back");
    require(back.rows() == data.rows(), "as many rows");
    require(data.names().texts() == back.names().texts(), "the same names");
    require(back.testSymmetry(), "as symmetric");
    for (int i = 0; i < back.matrix().rows(); ++i) {
        for (int j = i; j < back.matrix().columns(); ++j) {
            const double rounded = numbertext::rounded(data.matrix()[i][j], decimals);
            require(std::abs(back.matrix()[i][j] - rounded) <= 0.5000001e-5 * std::abs(rounded),
                    "the same values to six digits");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    CorrelationData correlations;
    if (!load(fileOf(reinterpret_cast<const char*>(data) + 1, size - 1), correlations))
        return 0;
    const bool symmetric = correlations.testSymmetry();
    require(symmetric == correlations.asymmetry().isEmpty(), "an asymmetric cell is named");
    if (symmetric) // nothing else comes as far as to an export
        requireReadBack(correlations, data[0] % 10);
    return 0;
}
