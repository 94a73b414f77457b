// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// A raw data file, from its bytes to the container: read as the plain reader does it, and what the
// save writes comes back to the bit.

#include "fuzz/fuzzsupport.h"
#include "input/plaincomparison.h"
#include "output/rawdatatext.h"

#include <cmath>
#include <sstream>

namespace {

void requireReadBack(const AsciiData& data)
{
    std::ostringstream out;
    writeRawData(out, data.matrix(), data.names());
    const std::string bytes = out.str();
    AsciiDataReader reader(fileOf(bytes.data(), bytes.size()), nullptr);
    AsciiData back;
    require(reader.readFile() && reader.checkConsistency() &&
                back.allocate(reader.lineCount(), reader.columnCount()) && reader.getData(back),
            "the save reads back");
    require(difference(data.matrix(), back.matrix()).isEmpty(), "with the same numbers");
    require(data.names().texts() == back.names().texts(), "and the same names");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QString path = fileOf(reinterpret_cast<const char*>(bytes), size);
    AsciiData data;
    const auto outcome = plaincomparison::compare(path, takeReports, data);
    require(outcome.difference.isEmpty(), qPrintable(outcome.difference));
    if (outcome.filled) {
        require(data.forEachCell([](double* cell) { return std::isfinite(*cell); }), "finite");
        requireReadBack(data);
    }
    return 0;
}
