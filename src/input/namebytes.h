// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>

/// Names are bytes in every file. As text they are Latin-1, but for the bytes 80 to 9F, which are
/// no letters there (and end a line of text on the screen): these are shown as in Windows-1252.
namespace namebytes {

/// The five bytes that Windows-1252 leaves undefined become U+FFFD.
QString toText(const std::string& bytes);

/// The other way round; a character that has no byte becomes "?".
std::string toBytes(const QString& text);

} // namespace namebytes
