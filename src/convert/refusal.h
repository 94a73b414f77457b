// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/wording.h"

#include <QStringList>

#include <exception>
#include <utility>

namespace convert {

/// Thrown where a file is refused: every reason in a line of its own, with the place and the option
/// that helps.
class Refusal : public std::exception
{
public:
    explicit Refusal(const QString& reason) : m_reasons(reason) {}
    explicit Refusal(QStringList reasons) : m_reasons(std::move(reasons)) {}

    const QStringList& reasons() const { return m_reasons; }
    const char* what() const noexcept override { return "refused"; }

private:
    QStringList m_reasons;
};

} // namespace convert
