// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QByteArray;
class QDateTime;

/// Puts other times in place of the run's, with which the toolkit stamps a PDF file, and zeros in
/// place of the random identifier that its newer versions give it. All in as many bytes, so that
/// the file's table of positions stays true.
void stampPdf(QByteArray& pdf, const QDateTime& created);
