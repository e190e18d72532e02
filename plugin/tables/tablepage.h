#pragma once

#include "tables/tablemodel.h"

#include <QAbstractButton>
#include <QAction>
#include <QPointer>
#include <QTableView>
#include <QVector>
#include <QWidget>

class QMenu;

namespace VLT {

class Document;
class DoubleEditorDelegate;
class VLTView;

/// Base of a page that shows records in one table: table setup, the commands "Add" and "Remove",
/// the context menu, removal, and a selection that follows its records when the table is sorted.
///
/// A page declares a RecordModel with its record's columns, derives from RecordPage, and then
///
///     DFFSetWidget::DFFSetWidget(VLTView *view, QWidget *parent)
///         : RecordPage(view, parent), m_ui(...)
///     {
///         m_ui->setupUi(this);
///         setUpTable(m_ui->tableView, &m_model, NODE_INSTANCE, {320, 120});
///         connectCommands(m_ui->btnAdd, m_ui->btnRemove, &DFFSetWidget::onAdd,
///                         &DFFSetWidget::onShowContextMenu);
///     }
///
/// `onAdd` runs its dialog in a GuardedDialog, appends to the list and calls `showAdded`. The slot
/// for the context menu calls `showMenu`.
class TablePage : public QWidget
{
    Q_OBJECT

public:
    ~TablePage() override;

    /// Name of the elements that the records are in the file; empty for records of another page's.
    QString section() const { return m_section; }

    /// Selects the `occurrence`-th record, from 1, that is called `name` in the file, and scrolls
    /// to it. False when there is none.
    bool showRecord(const QString &name, int occurrence);

    /// Commits and closes the open editor of a cell.
    void commitEditor();

    /// Shows the user the row: its tab, the row selected and in sight, the focus in it.
    void reveal(int row);

    /// Reveals the first row with a cell of which unwritableText() is `text`; false when there is
    /// none.
    bool revealUnwritable(const QString &text);

public slots:
    /// Asks, and removes the selected rows.
    void onRemove();

protected:
    /// Whether the file has that name for the row's record: the text of the first column, unless
    /// the page shows another one.
    virtual bool isNamed(int row, const QString &name) const;

    /// `view` is not owned and outlives the page.
    TablePage(VLTView *view, QWidget *parent);

    Document *document() const { return m_document; }
    void setView(VLTView *view);

    /// To be called once, before `connectCommands`. `section` is as above; `widths` are those of
    /// the first columns, in pixels; the last column stretches.
    void setUpTable(QTableView *table, TableModel *model, const QString &section,
                    const QVector<int> &widths = {},
                    const QString &addText = QStringLiteral("Add    "));

    /// The numeric editor of the table, from 0 to 100.
    DoubleEditorDelegate *delegate() const { return m_delegate; }

    /// Connects actions, buttons (null if the page has none) and the context menu to the page's
    /// slots; `onMenu` may take the requested point, in viewport coordinates, or nothing.
    template<class Page, class... Point>
    void connectCommands(QAbstractButton *addButton, QAbstractButton *removeButton,
                         void (Page::*onAdd)(), void (Page::*onMenu)(Point...))
    {
        auto *page = static_cast<Page *>(this);
        connect(m_table, &QTableView::customContextMenuRequested, page, onMenu);
        connect(m_addAction, &QAction::triggered, page, onAdd);
        connect(m_removeAction, &QAction::triggered, this, &TablePage::onRemove);
        if (addButton)
            connect(addButton, &QAbstractButton::clicked, page, onAdd);
        if (removeButton)
            connect(removeButton, &QAbstractButton::clicked, this, &TablePage::onRemove);
    }

    /// Runs the context menu at a global position. The page may have been deleted when it returns.
    void showMenu(const QPoint &globalPos);

    /// Reloads the model; if the list has grown beyond `oldCount` rows, selects the new ones and
    /// focuses the first of them.
    void showAdded(int oldCount);

private:
    void selectRows(int first, int last);

    Document *m_document;
    QString m_section;
    QTableView *m_table = nullptr;
    TableModel *m_model = nullptr;
    DoubleEditorDelegate *m_delegate = nullptr;
    QAction *m_addAction = nullptr;
    QAction *m_removeAction = nullptr;
    QPointer<QMenu> m_menu;
};

} // namespace VLT
