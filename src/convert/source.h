// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/encoding.h"
#include "convert/options.h"

#include <QString>

#include <exception>

namespace convert {

/// Thrown where a file cannot be read.
class ReadFailure : public std::exception
{
public:
    explicit ReadFailure(const QString& reason) : m_reason(reason) {}

    const QString& reason() const { return m_reason; }
    const char* what() const noexcept override { return "cannot be read"; }

private:
    QString m_reason;
};

/// Reads a file whole. Throws ReadFailure, and Refusal for what is no text.
/// @param options  get what the kind of the file settles
SourceText readSource(const QString& path, Options& options);

} // namespace convert
