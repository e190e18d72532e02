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

/// Makes the selection of a table follow its records through a sort, which the model announces only
/// as changed data. The model itself moves the view's single persistent indexes, such as the
/// current cell.
class RowSelection : public QObject
{
    Q_OBJECT

public:
    /// A child of `table`; the model must outlive it.
    RowSelection(QTableView *table, TableModel *model);

private:
    void keep();
    void restore();

    QTableView *const m_table;
    TableModel *const m_model;
    QSet<const void *> m_selected;
    bool m_allSelected = false; ///< then `m_selected` is empty
};

} // namespace VLT
