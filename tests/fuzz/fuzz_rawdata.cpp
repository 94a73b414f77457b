// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// A raw data file, from its bytes to the container: read as the plain reader does it, and what the
// save writes comes back to the bit.

#include "fuzz/fuzzsupport.h"
#include "input/asciidata.h"
#include "input/asciidatareader.h"
#include "plain/reader.h"
#include "views/rawdataexport.h"

#include <cmath>
#include <sstream>

namespace {

using pelmora::Matrix;
namespace plain = pelmora::plain;

constexpr double untouched = 1234.5678;

void setUntouched(AsciiData& data)
{
    data.forEachCell([](double* cell) {
        *cell = untouched;
        return true;
    });
}

bool sameCells(const Matrix& a, const Matrix& b)
{
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            if (!sameBits(a[i][j], b[i][j]))
                return false;
    return a.rows() == b.rows() && a.columns() == b.columns();
}

void requireReadBack(const AsciiData& data)
{
    std::ostringstream out;
    writeRawData(out, data);
    const std::string bytes = out.str();
    AsciiDataReader reader(fileOf(bytes.data(), bytes.size()), nullptr);
    AsciiData back;
    require(reader.readFile() && reader.checkConsistency() &&
                back.allocate(reader.lineCount(), reader.columnCount()) && reader.getData(back),
            "the save reads back");
    require(sameCells(data.matrix(), back.matrix()), "with the same numbers");
    require(data.names().texts() == back.names().texts(), "and the same names");
}

void requireSameLines(const AsciiReader& reader, const plain::TextFile& expected)
{
    require(reader.dataLines() == expected.data, "the same data lines");
    require(reader.nameLines() == expected.names, "the same name lines");
    require(reader.otherLines() == expected.other, "the same other lines");
    require(reader.lineCount() == static_cast<unsigned>(expected.data.size()), "as many lines");
    require(reader.columnCount() == static_cast<unsigned>(plain::columnCount(expected)),
            "as many columns");
}

void requireSameFault(AsciiDataReader& reader, const plain::TextFile& expected)
{
    const QString fault = plain::firstFault(expected);
    require(reader.checkConsistency() == fault.isEmpty(), "a fault is found");
    const QStringList reports = takeReports();
    require(reports.size() == (fault.isEmpty() ? 0 : 1), "one message per fault");
    const QString report = reports.value(0).section(u'|', 1);
    require(report == fault || report.endsWith(QStringLiteral("...")), "the fault is told");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = fileOf(reinterpret_cast<const char*>(data), size);
    plain::TextFile expected;
    require(plain::readFile(path, expected), "plainly readable");
    AsciiReader text(path, nullptr);
    AsciiDataReader reader(path, nullptr);
    require(text.readFile() && reader.readFile(), "readable");
    requireSameLines(text, expected);
    requireSameLines(reader, expected);
    requireSameFault(reader, expected);

    AsciiData read;
    AsciiData plainly;
    for (AsciiData* each : {&read, &plainly}) {
        require(each->allocate(reader.lineCount(), reader.columnCount()), "there is memory");
        setUntouched(*each);
    }
    const bool filled = plain::fillMatrix(expected, plainly.matrix().rowPointers());
    require(reader.getData(read) == filled, "filled alike");
    require(sameCells(read.matrix(), plainly.matrix()), "with the same numbers");
    require(read.names().size() == plain::variableNames(expected).size(), "as many names");
    if (filled) {
        require(read.forEachCell([](double* cell) { return std::isfinite(*cell); }), "finite");
        requireReadBack(read);
    }
    return 0;
}
