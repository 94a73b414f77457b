// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>

namespace convert {

/// What a window shows in place of the options "--kind" and their values "--kind data".
using OptionLabels = QHash<QString, QString>;

/// @p text with the labels, in quotes, in place of the options and values that have some:
/// "Kind: Data" for "--kind data". Options without a label stay.
QString withLabels(const QString& text, const OptionLabels& labels);

} // namespace convert
