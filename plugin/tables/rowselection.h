#pragma once

#include <QObject>
#include <QSet>
#include <QVector>

class QItemSelectionModel;
class QTableView;

namespace VLT {

class TableModel;

/// The selected rows, in the order in which they were selected. It reads the selection's ranges,
/// so that a million rows are cheap.
QVector<int> selectedRows(const QItemSelectionModel *selection);

/// Lets the selection and the current cell of a table follow their records through a sort, of
/// which the model tells no more than that data changed.
class RowSelection : public QObject
{
    Q_OBJECT

public:
    /// A child of `table`; both are to outlive it or go with it.
    RowSelection(QTableView *table, TableModel *model);

private:
    void keep();
    void restore();

    QTableView *const m_table;
    TableModel *const m_model;
    QSet<const void *> m_selected;
    const void *m_current = nullptr;
    int m_currentColumn = -1;
};

} // namespace VLT
