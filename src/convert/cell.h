// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/number.h"
#include "convert/options.h"

#include <string>
#include <string_view>
#include <vector>

namespace convert {

/// Tells numbers from missing values and from all else. Missing are empty fields, "NA", and the
/// codes that the user named: numbers are compared as numbers, all others as text.
class CellRule
{
public:
    CellRule(DecimalSigns signs, const Options& options);

    enum Meaning { Value, Missing, Fault };
    struct Cell
    {
        Meaning meaning;
        Number number;
    };

    Cell read(std::string_view field) const
    {
        if (field.empty())
            return {Missing, {}};
        Number number;
        if (!parseCommonNumber(field, m_signs, number))
            number = parseNumber(field, m_signs);
        if (number.kind == Number::Value && (m_numbers.empty() || !isCode(number.value)))
            return {Value, number};
        return {number.kind == Number::Value || isCode(field) ? Missing : Fault, number};
    }

    DecimalSigns signs() const { return m_signs; }

private:
    bool isCode(double value) const;
    bool isCode(std::string_view field) const;

    DecimalSigns m_signs;
    std::vector<double> m_numbers;
    std::vector<std::string> m_texts;
};

/// The signs that a number may have at this separator, as far as the user's options tell: a comma
/// only where it does not separate fields, or where both are asked for.
DecimalSigns possibleSigns(Separator separator, const Options& options);

} // namespace convert
