// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/commands.h"

#include "batch/console.h"

namespace batch {

int analyse(const QStringList& arguments)
{
    return refuseUsage(QStringLiteral("analyse"), arguments.value(0));
}

} // namespace batch
