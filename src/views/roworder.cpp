// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/roworder.h"

#include "views/factormodel.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableView>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// The sort key of a variable; smaller comes first.
struct Rank
{
    int group;
    double negatedLoading;
    bool operator<(const Rank& other) const
    {
        return group != other.group ? group < other.group : negatedLoading < other.negatedLoading;
    }
};

Rank rankOf(const factorModel& model, int variable, int factor)
{
    const auto loading = [&](int of) { return std::abs(model.value(variable + 1, of + 1)); };
    const int factors = model.numberOfFactors();
    // Ties go to the factor asked for.
    int largest = factor;
    for (int of = 0; of < factors; ++of)
        if (std::isnan(loading(largest)) || loading(of) > loading(largest))
            largest = of;
    if (std::isnan(loading(largest)))
        return {factors, 0.0};
    return {largest == factor ? -1 : largest, -loading(largest)};
}

/// Puts the rows of @p view into the order of @p rows.
void moveRows(QTableView* view, const std::vector<int>& rows)
{
    QHeaderView* header = view->verticalHeader();
    {
        // The view would lay itself out anew after every move.
        const QSignalBlocker blocker(header);
        for (int place = 0; place < static_cast<int>(rows.size()); ++place)
            header->moveSection(header->visualIndex(rows[static_cast<std::size_t>(place)]), place);
    }
    view->doItemsLayout();
    view->scrollToTop();
}

/// The two actions, and the event filter that notes over which column the menu is opened.
class RowOrder : public QObject
{
public:
    explicit RowOrder(QTableView* view)
        : QObject(view)
        , m_view(view)
        , m_byFactor(new QAction(
              QCoreApplication::translate("RowOrder", "Order rows by this factor"), view))
        , m_original(new QAction(QCoreApplication::translate("RowOrder", "Original order"), view))
    {
        connect(m_byFactor, &QAction::triggered, this, &RowOrder::orderByFactor);
        connect(m_original, &QAction::triggered, this, &RowOrder::restore);
        view->addActions({m_byFactor, m_original});
        // The event of the menu goes to the viewport over the cells, to the view over a header or
        // by a key.
        view->installEventFilter(this);
        view->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ContextMenu) {
            const auto* menu = static_cast<QContextMenuEvent*>(event);
            const int x = m_view->viewport()->mapFromGlobal(menu->globalPos()).x();
            m_column = menu->reason() == QContextMenuEvent::Mouse ? m_view->columnAt(x)
                                                                  : m_view->currentIndex().column();
            m_byFactor->setEnabled(m_column >= 1);
            m_original->setEnabled(isMoved());
        }
        return false;
    }

private:
    void orderByFactor()
    {
        const auto* model = qobject_cast<const factorModel*>(m_view->model());
        if (!model || m_column < 1 || m_column > model->numberOfFactors())
            return;
        std::vector<int> rows = variablesByFactor(*model, m_column - 1);
        // Row 0 is the summary.
        std::for_each(rows.begin(), rows.end(), [](int& row) { ++row; });
        rows.insert(rows.begin(), 0);
        moveRows(m_view, rows);
    }

    void restore()
    {
        std::vector<int> rows(static_cast<std::size_t>(m_view->verticalHeader()->count()));
        std::iota(rows.begin(), rows.end(), 0);
        moveRows(m_view, rows);
    }

    bool isMoved() const
    {
        const QHeaderView* header = m_view->verticalHeader();
        for (int row = 0; row < header->count(); ++row)
            if (header->visualIndex(row) != row)
                return true;
        return false;
    }

    QTableView* m_view;
    QAction* m_byFactor;
    QAction* m_original;
    int m_column = -1;
};

} // namespace

std::vector<int> variablesByFactor(const factorModel& model, int factor)
{
    std::vector<Rank> ranks;
    ranks.reserve(static_cast<std::size_t>(model.numberOfVariables()));
    for (int variable = 0; variable < model.numberOfVariables(); ++variable)
        ranks.push_back(rankOf(model, variable, factor));
    std::vector<int> variables(ranks.size());
    std::iota(variables.begin(), variables.end(), 0);
    std::stable_sort(variables.begin(), variables.end(), [&](int a, int b) {
        return ranks[static_cast<std::size_t>(a)] < ranks[static_cast<std::size_t>(b)];
    });
    return variables;
}

void installRowOrder(QTableView* view)
{
    new RowOrder(view);
}
