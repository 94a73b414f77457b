// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

class QTableView;
class factorModel;

/// The variables (0-based) in the order for reading @p factor (0-based): first those whose largest
/// absolute loading is on it, in descending order, then those of every other factor likewise. Equal
/// ones keep their order; variables that have no number come last.
std::vector<int> variablesByFactor(const factorModel& model, int factor);

/// Gives the context menu of a circular diagram "Order rows by this factor" (the column below the
/// pointer; opened by a key: that of the current cell) and "Original order". They move rows of the
/// view and leave the model as it is. The summary row stays on top.
void installRowOrder(QTableView* view);
