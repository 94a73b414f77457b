// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace batch {

struct Analysis;
class FileMessages;
class JsonWriter;

/// Writes @p analysis as one object; docs/analysis.schema.json describes it. With @p refused only
/// what is known of the input and the messages.
void writeAnalysis(JsonWriter& json, const Analysis& analysis, const FileMessages& messages,
                   bool refused, bool writesAdequacy);

} // namespace batch
