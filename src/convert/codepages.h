// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/options.h"

#include <QByteArray>

#include <optional>
#include <string_view>

namespace convert {

/// UTF-8 of a text in one of the encodings windows-1250 to -1253; U+FFFD stands for a byte without
/// a letter.
QByteArray fromCodePage(std::string_view text, Encoding encoding);

/// The byte of a letter in a name: Latin-1, and Windows-1252's letters in 80 to 9F. Nothing for
/// the controls there, nor for any other letter.
std::optional<char> byteOf(char32_t letter);

} // namespace convert
