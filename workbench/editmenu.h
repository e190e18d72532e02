#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QAction;
class QKeySequence;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QTableView;

namespace Utils {
class FindBar;
}

namespace Workbench {

/// The commands for the table or text field that has the focus, or had it before the menu was
/// opened. A command is enabled if it applies.
class EditMenu : public QObject
{
    Q_OBJECT

public:
    /// Acts on the fields of `window`, which owns the object.
    explicit EditMenu(QWidget *window);

    /// Owned by the window.
    QMenu *menu() const { return m_menu; }

    /// To be placed by the window. Searches the table that has the focus or had it last, else the
    /// first one of the current view.
    Utils::FindBar *findBar() const { return m_findBar; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What the commands act on: at most one is set.
    struct Target
    {
        QLineEdit *line = nullptr;
        QPlainTextEdit *text = nullptr;
        QTableView *table = nullptr;
    };

    QAction *add(const char *name, const QString &text, const QKeySequence &keys,
                 void (EditMenu::*command)());
    void onFocusChanged(QWidget *now);
    Target target() const;
    void restoreSelection();
    void update();
    void updateFind(bool enabled);
    static QString noTable();
    QTableView *searchedTable() const;
    void search(void (Utils::FindBar::*command)());
    void cut();
    void copy();
    void paste();
    void fillDown();
    void selectAll();
    void find();
    void findNext();
    void findPrevious();

    QWidget *const m_window;
    QMenu *const m_menu;
    Utils::FindBar *const m_findBar;
    QPointer<QWidget> m_focus; // never a menu
    // Of the line that had the focus, since it loses its selection to the menu bar.
    int m_selectionStart = -1;
    int m_selectionLength = 0;
    QAction *m_cut;
    QAction *m_copy;
    QAction *m_paste;
    QAction *m_fillDown;
    QAction *m_selectAll;
    QAction *m_find;
    QAction *m_findNext;
    QAction *m_findPrevious;
};

} // namespace Workbench
