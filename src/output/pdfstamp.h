// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QByteArray;
class QDateTime;

/// Replaces the times of creation in a PDF file of the toolkit by @p created, and the random
/// identifiers of its newer versions by zeros. The number of bytes stays, so that the
/// cross-reference table of the file stays valid.
void stampPdf(QByteArray& pdf, const QDateTime& created);
