// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QTableView;

/// Keeps very long names in the headers of a table from taking the place of its numbers: they are
/// cut at the right.
void limitNameHeaders(QTableView* view);

/// Widens the columns whose header has become longer; no column becomes narrower.
void widenForHeaders(QTableView* view);
