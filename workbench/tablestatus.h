#pragma once

#include <QLabel>
#include <QPointer>
#include <QTableView>

class QStatusBar;

namespace Workbench {

/// Shows the number of rows, and of selected rows, of the table with the focus. Clears messages
/// about a table or field when the focus leaves it.
class TableStatus : public QLabel
{
    Q_OBJECT

public:
    /// Adds itself to `bar`.
    explicit TableStatus(QStatusBar *bar);

private:
    void onFocusChanged(QWidget *now);
    void follow(QTableView *table);
    void onMoved();
    void showCounts();

    QStatusBar *const m_bar;
    QPointer<QTableView> m_table;
};

} // namespace Workbench
