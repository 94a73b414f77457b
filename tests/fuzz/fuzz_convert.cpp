// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// A table from elsewhere, under options that the first three bytes choose: whatever the converter
// accepts, the program reads with the rows, columns, doubles and names that the report says.

#include "convert/readback.h"
#include "convert/refusal.h"
#include "fuzz/fuzzsupport.h"

#include <cstring>
#include <sstream>

namespace {

convert::Options optionsOf(const std::uint8_t* bytes)
{
    using namespace convert;
    constexpr Separator separators[] = {Separator::Unknown, Separator::Tab, Separator::Semicolon,
                                        Separator::Comma, Separator::Blank};
    constexpr Encoding encodings[] = {Encoding::Unknown, Encoding::Windows1250,
                                      Encoding::Windows1251, Encoding::Utf16LittleEndian};
    Options options;
    options.separator = separators[bytes[0] % 5];
    options.decimal =
        std::array{Decimal::Unknown, Decimal::Point, Decimal::Comma}[bytes[0] / 5 % 3];
    options.header = std::array{Header::Unknown, Header::Yes, Header::No}[bytes[0] / 15 % 3];
    options.kind = std::array{Kind::Unknown, Kind::Data, Kind::Correlations}[bytes[1] % 3];
    options.transpose = bytes[1] / 3 % 2 == 1;
    options.noMissingCodes = bytes[1] / 6 % 2 == 1;
    if (bytes[1] / 12 % 2 == 1)
        options.missing = QStringList{QStringLiteral("-99"), QStringLiteral("x")};
    options.encoding = encodings[bytes[2] % 4];
    if (bytes[2] / 4 % 2 == 1)
        options.columns.add({2, 3});
    if (bytes[2] / 8 % 2 == 1)
        options.skip.add({2, 2});
    return options;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size < 3)
        return 0;
    const convert::Options options = optionsOf(bytes);
    QByteArray buffer = convert::bufferFor(size - 3);
    std::memcpy(buffer.data() + 1, bytes + 3, size - 3);
    try {
        const convert::SourceText text = convert::decoded(buffer, options.encoding);
        const convert::Conversion conversion(text, options);
        require(conversion.isAccepted() || !conversion.reasons().front().isEmpty(), "reasons");
        if (!conversion.isAccepted())
            return 0;
        require(!convert::reportOf(conversion).isEmpty(), "a report");
        std::ostringstream out;
        conversion.write(out);
        const std::string written = out.str();
        const QString difference =
            readback::difference(fileOf(written.data(), written.size()), conversion);
        require(difference.isEmpty(), qPrintable(difference));
    } catch (const convert::Refusal& refusal) {
        require(!refusal.reasons().isEmpty(), "reasons");
    }
    return 0;
}
