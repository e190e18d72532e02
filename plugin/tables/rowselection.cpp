#include "tables/rowselection.h"

#include "tables/tablemodel.h"

#include <QItemSelectionModel>
#include <QTableView>

namespace VLT {

QVector<int> selectedRows(const QItemSelectionModel *selection)
{
    const QItemSelection ranges = selection->selection();
    QVector<int> rows;
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    return rows;
}

RowSelection::RowSelection(QTableView *table, TableModel *model)
    : QObject(table)
    , m_table(table)
    , m_model(model)
{
    connect(model, &TableModel::aboutToSort, this, &RowSelection::keep);
    connect(model, &TableModel::sorted, this, &RowSelection::restore);
}

void RowSelection::keep()
{
    const QItemSelectionModel *selection = m_table->selectionModel();
    const auto recordAt = [this](int row) { return m_model->index(row, 0).internalPointer(); };

    const QModelIndex current = selection->currentIndex();
    m_current = current.isValid() ? recordAt(current.row()) : nullptr;
    m_currentColumn = current.column();

    m_selected.clear();
    const QVector<int> rows = selectedRows(selection);
    if (rows.size() == m_model->rowCount())
        return; // every row stays selected
    m_selected.reserve(rows.size());
    for (const int row : rows)
        m_selected.insert(recordAt(row));
}

void RowSelection::restore()
{
    if (!m_current && m_selected.isEmpty())
        return;
    const int lastColumn = m_model->columnCount() - 1;
    const int rowCount = m_model->rowCount();
    QItemSelection selected;
    QModelIndex current;
    int runStart = -1;
    for (int row = 0; row <= rowCount; ++row) {
        const QModelIndex first = m_model->index(row, 0); // invalid behind the last row
        const bool inRun = first.isValid() && m_selected.contains(first.internalPointer());
        if (inRun && runStart < 0)
            runStart = row;
        if (!inRun && runStart >= 0) {
            selected.append({m_model->index(runStart, 0), m_model->index(row - 1, lastColumn)});
            runStart = -1;
        }
        if (m_current && first.internalPointer() == m_current)
            current = m_model->index(row, m_currentColumn);
    }

    // The rows that the user looks at stay in place; only what is marked among them moves.
    const bool autoScroll = m_table->hasAutoScroll();
    m_table->setAutoScroll(false);
    QItemSelectionModel *selection = m_table->selectionModel();
    if (!m_selected.isEmpty()) {
        // Exchanging one selection of many ranges for another takes quadratic time.
        selection->clearSelection();
        selection->select(selected, QItemSelectionModel::Select);
        m_selected.clear();
    }
    if (current.isValid())
        selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    m_table->setAutoScroll(autoScroll);
}

} // namespace VLT
