// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/encoding.h"
#include "convert/options.h"

#include <QString>

namespace convert {

/// The suffix that stands for the format of a file of SPSS, Stata or SAS (sav, zsav, por, dta,
/// xpt), told by its first bytes or its name; empty for any other file.
QString statFormat(const QString& path);

/// Its variables as a text with a header. Values that the file declares missing are empty fields;
/// all others have the shortest digits that read back to the same double. Variables of text are
/// empty and not among the columns kept. Throws ReadFailure, and Refusal where the program was
/// built without ReadStat.
SourceText readStatFile(const QString& path, Options& options);

} // namespace convert
