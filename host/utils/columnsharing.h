#pragma once

#include "hostexport.h"

#include <QObject>
#include <QVector>

class QHeaderView;
class QHelpEvent;
class QTableView;
class QWidget;

namespace Utils {

/// Distributes a table's width among its columns: values stay visible, and the first column, which
/// has the names, gets the rest. The widths when the table is first shown are the initial widths
/// and the proportions. Off unless the program enables it.
///
/// Resizing a column by hand ends this for the table; its widths are remembered per kind of table
/// until reset from the header's context menu.
class HOST_EXPORT ColumnSharing : public QObject
{
    Q_OBJECT

public:
    /// For all tables of the program; call it before the first one is shown.
    static void setEnabled(bool enabled);

    /// `table` owns the object.
    explicit ColumnSharing(QTableView *table);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showTitle(const QHelpEvent *event) const;
    void start();
    void share();
    QVector<int> sharedWidths() const;
    void apply(const QVector<int> &widths);
    void remember();
    void reset();
    QString settingsKey() const;

    QTableView *const m_table;
    QHeaderView *const m_header;
    // Separate, because it still receives events when only the header's QWidget part is left.
    QWidget *const m_headerViewport;
    QVector<int> m_start; // widths when the table was first shown; empty before
    bool m_sharing = false;
    bool m_pressed = false; // a mouse button, on the header
    bool m_moved = false;   // by the user, now or in an earlier session
};

} // namespace Utils
