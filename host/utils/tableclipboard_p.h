#pragma once

#include <QString>

class QTableView;

namespace Utils {

/// Counts the outcome for the cells that a command was to change.
struct EditCount
{
    int changed = 0;
    int refused = 0;
    int outside = 0; ///< texts for which the table has no cell

    /// One sentence for the user.
    QString text() const;
};

/// The selected rows, in the table's order, each from the first to the last selected visible
/// column; cells are separated by tabs and rows end with a line feed. A cell that contains either
/// is quoted as in spreadsheets. Empty without a selection.
QString selectionText(const QTableView *table);

/// Pastes tab-separated text into the cells from the current one on. If whole rows are selected,
/// text as wide as the table starts in their first column; a single row of text is pasted into
/// every selected row, and as many rows of text as there are selected rows into those.
EditCount pasteText(QTableView *table, const QString &text);

/// Copies the text of the first selected row into the other selected rows, in the current column if
/// whole rows are selected, otherwise in every selected column. A single row is filled from the one
/// above.
EditCount fillDown(QTableView *table);

/// Copies the text of the current cell into its column of all other selected rows.
EditCount fillSelection(QTableView *table);

} // namespace Utils
