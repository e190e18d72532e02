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
    QItemSelectionModel *selection = m_table->selectionModel();
    const QVector<int> rows = selectedRows(selection);
    m_allSelected = !rows.isEmpty() && rows.size() == m_model->rowCount();
    m_selected.clear();
    if (!m_allSelected) {
        m_selected.reserve(rows.size());
        for (const int row : rows)
            m_selected.insert(m_model->index(row, 0).internalPointer());
    }
    // The sort would split the ranges of rows. Replacing one selection of many ranges by another
    // afterwards would also take quadratic time.
    selection->clearSelection();
}

void RowSelection::restore()
{
    const int lastColumn = m_model->columnCount() - 1;
    const int rowCount = m_model->rowCount();
    QItemSelection selected;
    if (m_allSelected)
        selected.select(m_model->index(0, 0), m_model->index(rowCount - 1, lastColumn));
    int runStart = -1;
    for (int row = 0; row <= rowCount && !m_selected.isEmpty(); ++row) {
        const QModelIndex first = m_model->index(row, 0); // invalid behind the last row
        const bool inRun = first.isValid() && m_selected.contains(first.internalPointer());
        if (inRun && runStart < 0)
            runStart = row;
        if (!inRun && runStart >= 0) {
            selected.append({m_model->index(runStart, 0), m_model->index(row - 1, lastColumn)});
            runStart = -1;
        }
    }
    m_table->selectionModel()->select(selected, QItemSelectionModel::Select);
    m_selected.clear();
}

} // namespace VLT
