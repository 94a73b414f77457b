// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QString;

namespace pelmora {

struct LineFault;

/// Report the faults of a file in the same words for all readers (see input/readerreport.h).
void reportReadError(const QString& fileName);
void reportLineFault(const LineFault& fault);

} // namespace pelmora
