// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QString;

namespace pelmora {

struct LineFault;

/// What all who read a file tell of its faults, through the report of input/readerreport.h.
void reportReadError(const QString& fileName);
void reportLineFault(const LineFault& fault);

} // namespace pelmora
