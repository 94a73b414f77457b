// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// One entry of a data line: converted, or refused, as the toolkit does.

#include "fuzz/fuzzsupport.h"
#include "input/numberparser.h"
#include "input/scan/numberscan.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Bytes are folded onto those of numbers; nothing else reaches a conversion.
    std::string text;
    for (std::size_t i = 0; i < size; ++i)
        text += "0123456789+-."[data[i] % 13];
    bool ok = false;
    const double expected = QString::fromStdString(text).toDouble(&ok);

    const auto parsed = pelmora::parseNumber(text.data(), text.data() + size);
    require(parsed.has_value() == ok, "accepted alike");
    require(!ok || sameBits(*parsed, expected), "converted alike");

    const std::string padded = text + std::string(pelmora::numberscan::margin, '1');
    double common = 0.0;
    if (size > 0 && pelmora::numberscan::parseCommon(padded.data(), padded.data() + size, common))
        require(ok && sameBits(common, expected), "common numbers converted alike");
    return 0;
}
