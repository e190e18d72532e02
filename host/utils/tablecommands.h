#pragma once

#include "hostexport.h"

class QTableView;
class QWidget;

namespace Utils {

/// The editing commands of a table, for its keys and for menus. What became of the cells is told by
/// a status tip. The questions say whether a command has something to work on; a command that is
/// run all the same changes nothing that it may not.
class HOST_EXPORT TableCommands
{
public:
    /// `table` has a model, is not owned and must outlive the object.
    explicit TableCommands(QTableView *table);

    /// The table with a model that `widget` is or is inside of, as a cell's editor is; else null.
    static QTableView *tableAround(QWidget *widget);

    bool canCopy() const;
    bool canPaste() const;
    bool canFillDown() const;

    /// Puts the selected rows into the clipboard as tab-separated text.
    void copy();
    /// Puts the clipboard's text into the cells from the current one on.
    void paste();
    /// Puts the first selected value of the current column into the selected rows below; with one
    /// row, the value above it.
    void fillDown();
    /// Puts the current value into its column of all selected rows.
    void fillSelection();

private:
    bool isEditable(int row, int column) const;

    QTableView *const m_table;
};

} // namespace Utils
