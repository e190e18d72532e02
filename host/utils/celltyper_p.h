#pragma once

#include <QModelIndex>
#include <QString>
#include <QTableView>
#include <QVariant>

#include <map>
#include <memory>

namespace Utils {

/// The text that a cell shows, or another of its roles would show.
QString shownText(const QTableView *table, const QModelIndex &index, int role = Qt::DisplayRole);

/// Enters texts into cells as a user would, who opens the cell's editor, types and commits: subject
/// to the item's flags, the delegate's editor with its validator, and the model. One editor is used
/// for a column, so a delegate must create the same kind for every row of a column.
class CellTyper
{
public:
    /// `table` is not owned and must outlive the object.
    explicit CellTyper(QTableView *table);

    /// Counts the outcome.
    void type(const QModelIndex &index, const QString &text);

    int changed() const { return m_changed; }
    int refused() const { return m_refused; }

private:
    bool commit(const QModelIndex &index, const QString &text);
    QWidget *editorFor(const QModelIndex &index);

    QTableView *const m_table;
    std::map<int, std::unique_ptr<QWidget>> m_editors; // by column
    int m_changed = 0;
    int m_refused = 0;
};

} // namespace Utils
