// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

namespace convert {

/// Rewords a text before its %1 are filled in, so that what stands in a file stays as it is.
using Wording = std::function<QString(const QString& text)>;

/// Sets how texts name the options that help, before anything is converted; until then as the
/// command line does.
void setWording(Wording wording);

/// A visible text of the rules, in the wording in force.
QString tr(const char* text);

} // namespace convert
