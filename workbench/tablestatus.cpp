#include "workbench/tablestatus.h"

#include "host/utils/findbar.h"
#include "host/utils/tablecommands.h"

#include <QApplication>
#include <QLocale>
#include <QMenuBar>
#include <QStatusBar>

#include <algorithm>

namespace Workbench {

namespace {

int selectedRows(const QItemSelectionModel *selectionModel)
{
    QItemSelection ranges = selectionModel->selection();
    std::sort(ranges.begin(), ranges.end(),
              [](const auto &a, const auto &b) { return a.top() < b.top(); });
    int count = 0;
    int next = 0; // the first row that is not counted
    for (const QItemSelectionRange &range : qAsConst(ranges)) {
        count += std::max(0, range.bottom() + 1 - std::max(next, range.top()));
        next = std::max(next, range.bottom() + 1);
    }
    return count;
}

} // namespace

TableStatus::TableStatus(QStatusBar *bar)
    : m_bar(bar)
{
    setObjectName(QStringLiteral("tableStatus"));
    bar->addPermanentWidget(this);
    hide();
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { onFocusChanged(now); });
}

void TableStatus::onFocusChanged(QWidget *now)
{
    if (!now || now->window() != window() || qobject_cast<QMenuBar *>(now))
        return;
    QTableView *table = Utils::TableCommands::tableAround(now);
    const auto *bar = window()->findChild<Utils::FindBar *>();
    if (!table && bar && bar->isAncestorOf(now))
        return; // the find bar acts on the table
    if (!table || table != m_table)
        m_bar->clearMessage();
    follow(table);
}

void TableStatus::follow(QTableView *table)
{
    if (table == m_table)
        return;
    if (m_table) {
        m_table->selectionModel()->disconnect(this);
        m_table->model()->disconnect(this);
    }
    m_table = table;
    setVisible(table);
    if (!table)
        return;
    const QItemSelectionModel *selection = table->selectionModel();
    const QAbstractItemModel *model = table->model();
    connect(selection, &QItemSelectionModel::selectionChanged, this, &TableStatus::onMoved);
    connect(selection, &QItemSelectionModel::currentChanged, this, &TableStatus::onMoved);
    connect(model, &QAbstractItemModel::modelReset, this, &TableStatus::showCounts);
    connect(model, &QAbstractItemModel::rowsInserted, this, &TableStatus::showCounts);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &TableStatus::showCounts);
    showCounts();
}

void TableStatus::onMoved()
{
    m_bar->clearMessage();
    showCounts();
}

void TableStatus::showCounts()
{
    if (!m_table)
        return;
    const QLocale locale;
    const int rows = m_table->model()->rowCount();
    const int selected = selectedRows(m_table->selectionModel());
    QString text = rows == 1 ? tr("1 row") : tr("%1 rows").arg(locale.toString(rows));
    if (selected > 0)
        text += tr(", %1 selected").arg(locale.toString(selected));
    setText(text);
}

} // namespace Workbench
