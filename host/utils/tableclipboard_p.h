#pragma once

#include <QString>

class QTableView;

namespace Utils {

/// What became of the cells that a command was to change.
struct EditCount
{
    int changed = 0;
    int refused = 0;
    int outside = 0; ///< texts for which the table has no cell

    /// One sentence for the user.
    QString text() const;
};

/// The selected rows, in the table's order, each from the first to the last selected column as
/// shown; cells are set apart by tabs and rows end with a line feed. A cell that holds either is
/// quoted as spreadsheets do it. Empty without a selection.
QString selectionText(const QTableView *table);

/// Puts tab-separated text into the cells from the current one on. Where whole rows are selected,
/// text as wide as the table goes into the rows from their first column; a single row of text goes
/// into every selected row, and as many rows of text as rows are selected go into those.
EditCount pasteText(QTableView *table, const QString &text);

/// Puts the text of the first selected row into the other selected rows, in the current column when
/// whole rows are selected, else in every selected column. With one row it takes the row above.
EditCount fillDown(QTableView *table);

/// Puts the text of the current cell into its column of all other selected rows.
EditCount fillSelection(QTableView *table);

} // namespace Utils
