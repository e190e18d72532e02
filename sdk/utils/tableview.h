#pragma once

#include "hostexport.h"

#include <QTableView>

#include <memory>

namespace Utils {

class TableViewPrivate;

/// The environment's table: a QTableView that copies the selection as tab-separated text, pastes
/// such text, fills down, and finds a row by its first letters. It changes cells only through the
/// table's delegate and the flags of the items, as if the user had typed; what is refused is told
/// in the window's status bar. Tool tips show plain text whatever they hold.
class HOST_EXPORT TableView : public QTableView
{
    Q_OBJECT

public:
    explicit TableView(QWidget *parent = nullptr);
    ~TableView() override;

    /// Goes to the next row whose first column begins with the text typed lately, else to one that
    /// contains it.
    void keyboardSearch(const QString &search) override;

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    const std::unique_ptr<TableViewPrivate> d;
};

} // namespace Utils
