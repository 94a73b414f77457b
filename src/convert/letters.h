// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace convert {

/// ASCII letters nearest to a letter that Windows-1252 does not have and that is no letter with
/// marks: Polish and other strokes, Greek, Cyrillic, a few signs. Null for any other.
const char* nearestLetters(char32_t letter);

} // namespace convert
