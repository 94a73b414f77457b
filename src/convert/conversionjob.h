// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/conversion.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace convert {

/// What became of a file under some options.
struct JobResult
{
    std::shared_ptr<const Conversion> conversion; ///< null where the file was not read
    QStringList lines;                            ///< the report, or the reasons
    bool isAccepted = false;
};

/// Reads and converts; for a thread of its own.
JobResult runJob(const QString& path, Options options);

} // namespace convert
