#include "tables/tablepage.h"

#include "config/configurationfile.h"
#include "tables/document.h"
#include "tables/doubledelegate.h"
#include "tables/markednames.h"
#include "tables/rowselection.h"
#include "widgets/plainmessage.h"
#include "widgets/waitcursor.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLocale>
#include <QMenu>
#include <QTabWidget>

#include <algorithm>

namespace VLT {

namespace {

/// Each selected row once, ascending.
QVector<int> sortedRows(const QItemSelectionModel *selection)
{
    QVector<int> rows = selectedRows(selection);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

/// Brings the tabs around a widget to the front.
void showTabsOf(const QWidget *widget)
{
    for (QWidget *outer = widget->parentWidget(); outer; outer = outer->parentWidget()) {
        auto *tabs = qobject_cast<QTabWidget *>(outer);
        for (int i = 0; tabs && i < tabs->count(); ++i) {
            if (tabs->widget(i)->isAncestorOf(widget))
                tabs->setCurrentIndex(i);
        }
    }
}

} // namespace

TablePage::TablePage(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_document(documentOf(view))
{
}

TablePage::~TablePage()
{
    // The page may be deleted while a command of its menu is still being delivered.
    if (m_menu) {
        m_menu->setParent(nullptr);
        m_menu->deleteLater();
    }
}

void TablePage::setView(VLTView *view)
{
    m_document = documentOf(view);
    m_model->setDocument(m_document);
}

void TablePage::setUpTable(QTableView *table, TableModel *model, const QString &section,
                           const QVector<int> &widths, const QString &addText)
{
    m_section = section;
    m_table = table;
    m_model = model;
    m_delegate = new DoubleEditorDelegate(this, 0.0, 100.0);
    if (const auto *box = qobject_cast<QGroupBox *>(table->parentWidget()))
        table->setAccessibleName(box->title());

    table->setContextMenuPolicy(Qt::CustomContextMenu);
    table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setWordWrap(false);
    table->setTextElideMode(Qt::ElideMiddle);
    table->verticalHeader()->hide();
    QHeaderView *header = table->horizontalHeader();
    header->setHighlightSections(false);
    header->setTextElideMode(Qt::ElideRight);
    header->setStretchLastSection(true);

    table->setModel(model);
    table->setItemDelegate(m_delegate);
    if (const ListedKind kind = listedKind(section); kind != ListedKind::None)
        m_delegate->setMarks(new MarkedNames(table, kind));
    for (int column = 0; column < widths.size(); ++column)
        table->setColumnWidth(column, widths.at(column));
    // Otherwise enabling would sort at once by the indicated column; the list is in the file's
    // order.
    header->setSortIndicator(-1, Qt::AscendingOrder);
    table->setSortingEnabled(true);

    // The editor first: its text belongs to the record below it.
    connect(model, &TableModel::aboutToSort, m_delegate, &DoubleEditorDelegate::commitOpenEditor);
    new RowSelection(table, model);

    m_addAction = new QAction(addText, this);
    m_removeAction = new QAction(tr("Remove"), this);
    m_removeAction->setShortcut(QKeySequence::Delete);
    m_removeAction->setShortcutContext(Qt::WidgetShortcut);
    table->addAction(m_removeAction);
}

bool TablePage::isNamed(int row, const QString &name) const
{
    return m_model->index(row, 0).data().toString() == name;
}

bool TablePage::showRecord(const QString &name, int occurrence)
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (!isNamed(row, name) || --occurrence > 0)
            continue;
        const QModelIndex index = m_model->index(row, 0);
        commitEditor();
        m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                              QItemSelectionModel::Rows);
        m_table->scrollTo(index, QAbstractItemView::PositionAtCenter);
        m_table->setFocus();
        return true;
    }
    return false;
}

void TablePage::commitEditor()
{
    m_delegate->commitOpenEditor();
}

void TablePage::onRemove()
{
    commitEditor();
    QItemSelectionModel *selection = m_table->selectionModel();
    if (!selection->hasSelection())
        return;
    QMessageBox *question =
        newMessage(QMessageBox::Question, this, tr("Confirm"), tr("Sure to remove?"),
                   QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    const int count = sortedRows(selection).size();
    setDetail(question, count == 1 ? tr("1 row is selected.")
                                   : tr("%1 rows are selected.").arg(QLocale::c().toString(count)));
    if (runMessage(question) != QMessageBox::Yes)
        return; // the page may have been deleted

    const QVector<int> rows = sortedRows(selection);
    if (rows.isEmpty())
        return;
    const WaitCursor wait;
    m_model->removeRecords(rows);
    selection->clearSelection();
    const int next = qMin(rows.first(), m_model->rowCount() - 1);
    selection->setCurrentIndex(m_model->index(next, 0), QItemSelectionModel::NoUpdate);
    m_document->setModified(true);
}

void TablePage::showMenu(const QPoint &globalPos)
{
    m_menu = new QMenu(this);
    if (m_table->selectionModel()->hasSelection()) {
        m_menu->addAction(m_removeAction);
        m_menu->addSeparator();
    }
    m_menu->addAction(m_addAction);
    const QPointer<QMenu> menu = m_menu;
    menu->exec(globalPos);
    if (menu)
        menu->deleteLater();
}

void TablePage::showAdded(int oldCount)
{
    // The reset drops an open editor with its uncommitted text.
    commitEditor();
    m_model->reload();
    const int count = m_model->rowCount();
    if (count <= oldCount)
        return;
    // The new rows are at the end, however the list was sorted.
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    selectRows(oldCount, count - 1);
}

void TablePage::reveal(int row)
{
    showTabsOf(this);
    selectRows(row, row);
}

bool TablePage::revealUnwritable(const QString &text)
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        for (int column = 0; column < m_model->columnCount(); ++column) {
            const QModelIndex index = m_model->index(row, column);
            // A cell may show an abbreviation, and has the whole text in its tool tip.
            if (unwritableText(index.data().toString()) == text ||
                unwritableText(index.data(Qt::ToolTipRole).toString()) == text) {
                reveal(row);
                return true;
            }
        }
    }
    return false;
}

/// Selects the rows, and gives the focus to the first cell of them that the user may edit.
void TablePage::selectRows(int first, int last)
{
    const int lastColumn = m_model->columnCount() - 1;
    int column = 0;
    while (column <= lastColumn &&
           !m_model->index(first, column).flags().testFlag(Qt::ItemIsEditable))
        ++column;
    const QModelIndex current = m_model->index(first, column > lastColumn ? 0 : column);
    QItemSelectionModel *selection = m_table->selectionModel();
    selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selection->select({m_model->index(first, 0), m_model->index(last, lastColumn)},
                      QItemSelectionModel::ClearAndSelect);
    m_table->scrollTo(current);
    m_table->setFocus();
}

} // namespace VLT
