// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/cell.h"

#include <algorithm>

namespace convert {

CellRule::CellRule(DecimalSigns signs, const Options& options) : m_signs(signs), m_texts{"NA"}
{
    for (const QString& code : options.missing) {
        const std::string text = code.toStdString();
        // Commas separate the codes, so their decimal sign is the point.
        const Number number = parseNumber(text, {true, false});
        if (number.kind == Number::Value)
            m_numbers.push_back(number.value);
        m_texts.push_back(text);
    }
}

bool CellRule::isCode(double value) const
{
    return std::find(m_numbers.begin(), m_numbers.end(), value) != m_numbers.end();
}

bool CellRule::isCode(std::string_view field) const
{
    return std::find(m_texts.begin(), m_texts.end(), field) != m_texts.end();
}

DecimalSigns possibleSigns(Separator separator, const Options& options)
{
    if (options.decimal != Decimal::Unknown)
        return {options.decimal == Decimal::Point, options.decimal == Decimal::Comma};
    return {true, separator != Separator::Comma};
}

} // namespace convert
