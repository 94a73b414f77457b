// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/options.h"

#include <QByteArray>

#include <string_view>

namespace convert {

/// UTF-8 of a text in one of the encodings windows-1250 to -1253; U+FFFD stands for a byte without
/// a letter.
QByteArray fromCodePage(std::string_view text, Encoding encoding);

} // namespace convert
