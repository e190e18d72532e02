#pragma once

#include <QLabel>
#include <QPointer>
#include <QTableView>

class QStatusBar;

namespace Workbench {

/// How many rows the table with the focus has, and how many of them are selected. What the status
/// bar says about a table or field goes when the user goes on to another place.
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
