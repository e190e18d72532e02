#pragma once

#include "hostexport.h"

#include <QTableView>

#include <memory>

namespace Utils {

class TableViewPrivate;

/// The environment's table: a QTableView that copies the selection as tab-separated text, pastes
/// such text, fills down, and finds a row by its first letters. Typing a digit, sign or point on an
/// editable number opens its editor; Ctrl+Enter copies the current value into all selected rows.
/// Tab leaves the table; Enter moves down unless it opens something. Cells are changed only through
/// the table's delegate and the items' flags, as if the user had typed; refused cells are counted
/// in the window's status bar. Tool tips always show plain text.
class HOST_EXPORT TableView : public QTableView
{
    Q_OBJECT

public:
    explicit TableView(QWidget *parent = nullptr);
    ~TableView() override;

    using QTableView::edit;

    /// Moves to the next row whose first column begins with the recently typed text, or else to one
    /// that contains it.
    void keyboardSearch(const QString &search) override;

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    QStyleOptionViewItem viewOptions() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;

private:
    void fitRowHeight();
    void move(int rows);
    bool typeNumber(QKeyEvent *event);

    const std::unique_ptr<TableViewPrivate> d;
};

} // namespace Utils
