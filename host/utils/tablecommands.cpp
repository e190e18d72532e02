#include "host/utils/tablecommands.h"

#include "host/utils/tableclipboard_p.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QStatusTipEvent>
#include <QTableView>

namespace Utils {

namespace {

/// Runs an editing command and tells in the status bar what became of the cells.
template<class Command>
void run(QTableView *table, Command command)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const EditCount count = command();
    QApplication::restoreOverrideCursor();
    table->viewport()->update(); // the model need not tell what its setData changed
    QStatusTipEvent tip(count.text());
    QCoreApplication::sendEvent(table, &tip);
}

} // namespace

TableCommands::TableCommands(QTableView *table)
    : m_table(table)
{
}

QTableView *TableCommands::tableAround(QWidget *widget)
{
    auto *table = qobject_cast<QTableView *>(widget);
    while (widget && !table) {
        widget = widget->parentWidget();
        table = qobject_cast<QTableView *>(widget);
    }
    return table && table->model() ? table : nullptr;
}

bool TableCommands::canCopy() const
{
    return m_table->selectionModel()->hasSelection();
}

bool TableCommands::canPaste() const
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    const int row = m_table->currentIndex().row();
    if (!data || !data->hasText() || row < 0)
        return false;
    for (int column = 0; column < m_table->model()->columnCount(); ++column) {
        if (isEditable(row, column))
            return true;
    }
    return false;
}

bool TableCommands::canFillDown() const
{
    const QModelIndex current = m_table->currentIndex();
    const QItemSelection selection = m_table->selectionModel()->selection();
    int bottom = -1;
    for (const QItemSelectionRange &range : selection)
        bottom = qMax(bottom, range.bottom());
    return bottom > 0 && current.isValid() && isEditable(bottom, current.column());
}

bool TableCommands::isEditable(int row, int column) const
{
    return m_table->editTriggers() != QAbstractItemView::NoEditTriggers &&
           !m_table->isColumnHidden(column) &&
           m_table->model()->index(row, column).flags().testFlag(Qt::ItemIsEditable);
}

void TableCommands::copy()
{
    const QString text = selectionText(m_table);
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

void TableCommands::paste()
{
    run(m_table, [this] { return pasteText(m_table, QApplication::clipboard()->text()); });
}

void TableCommands::fillDown()
{
    run(m_table, [this] { return Utils::fillDown(m_table); });
}

void TableCommands::fillSelection()
{
    run(m_table, [this] { return Utils::fillSelection(m_table); });
}

} // namespace Utils
