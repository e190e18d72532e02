#include "workbench/editmenu.h"

#include "core/iview.h"
#include "host/core/viewarea.h"
#include "host/utils/findbar.h"
#include "host/utils/tablecommands.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QStatusTipEvent>
#include <QTableView>

namespace Workbench {

namespace {

/// The line that the widget is, or that it has the focus for.
QLineEdit *lineOf(QWidget *widget)
{
    if (qobject_cast<QAbstractSpinBox *>(widget))
        return widget->findChild<QLineEdit *>();
    const auto *box = qobject_cast<QComboBox *>(widget);
    return box ? box->lineEdit() : qobject_cast<QLineEdit *>(widget);
}

bool hasClipboardText()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    return data && data->hasText();
}

} // namespace

EditMenu::EditMenu(QWidget *window)
    : QObject(window)
    , m_window(window)
    , m_menu(new QMenu(tr("&Edit"), window))
    , m_findBar(new Utils::FindBar(window))
    , m_cut(add("cut", tr("Cu&t"), QKeySequence::Cut, &EditMenu::cut))
    , m_copy(add("copy", tr("&Copy"), QKeySequence::Copy, &EditMenu::copy))
    , m_paste(add("paste", tr("&Paste"), QKeySequence::Paste, &EditMenu::paste))
    , m_fillDown(add("fillDown", tr("Fill &down"), Qt::CTRL + Qt::Key_D, &EditMenu::fillDown))
    , m_selectAll(
          add("selectAll", tr("Select &all"), QKeySequence::SelectAll, &EditMenu::selectAll))
    , m_find(add("find", tr("&Find\u2026"), QKeySequence::Find, &EditMenu::find))
    , m_findNext(add("findNextRow", tr("Find &next"), QKeySequence::FindNext, &EditMenu::findNext))
    , m_findPrevious(add("findPreviousRow", tr("Find pre&vious"), QKeySequence::FindPrevious,
                         &EditMenu::findPrevious))
{
    m_menu->insertSeparator(m_find);
    m_fillDown->setStatusTip(tr("Put the first selected value of the column into the rows below"));
    connect(m_menu, &QMenu::aboutToShow, this, [this] {
        update();
        updateFind(searchedTable());
    });
    // Tables come into sight in many ways: the keys work at any time, and give the reason if there
    // is none.
    connect(m_menu, &QMenu::aboutToHide, this, [this] { updateFind(true); });
    updateFind(true);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { onFocusChanged(now); });
    update();
}

QAction *EditMenu::add(const char *name, const QString &text, const QKeySequence &keys,
                       void (EditMenu::*command)())
{
    QAction *action = m_menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, &EditMenu::restoreSelection);
    connect(action, &QAction::triggered, this, command);
    return action;
}

void EditMenu::onFocusChanged(QWidget *now)
{
    if (!now || now->window() != m_window || qobject_cast<QMenuBar *>(now) ||
        qobject_cast<QMenu *>(now))
        return;
    if (m_focus)
        m_focus->removeEventFilter(this);
    m_focus = now;
    m_focus->installEventFilter(this);
    if (QTableView *table = Utils::TableCommands::tableAround(now))
        m_findBar->setTable(table);
    update();
}

bool EditMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusAboutToChange && watched == m_focus) {
        const QLineEdit *line = lineOf(m_focus);
        const bool toMenu = static_cast<QFocusEvent *>(event)->reason() == Qt::MenuBarFocusReason;
        m_selectionStart = line && toMenu ? line->selectionStart() : -1;
        m_selectionLength = line ? line->selectionLength() : 0;
    }
    if (event->type() == QEvent::FocusIn && watched == m_focus)
        restoreSelection();
    return QObject::eventFilter(watched, event);
}

void EditMenu::restoreSelection()
{
    QLineEdit *line = target().line;
    if (line && !line->hasSelectedText() && m_selectionStart >= 0)
        line->setSelection(m_selectionStart, m_selectionLength);
    m_selectionStart = -1;
}

EditMenu::Target EditMenu::target() const
{
    Target target;
    if (!m_focus || !m_focus->isVisible() || !m_focus->isEnabled())
        return target;
    target.line = lineOf(m_focus);
    target.text = qobject_cast<QPlainTextEdit *>(m_focus);
    target.table = qobject_cast<QTableView *>(m_focus);
    if (target.table && !target.table->model())
        target.table = nullptr;
    return target;
}

void EditMenu::update()
{
    const auto [line, text, table] = target();
    const bool writable = (line && !line->isReadOnly()) || (text && !text->isReadOnly());
    const bool textSelected = (line && (line->hasSelectedText() || m_selectionStart >= 0)) ||
                              (text && text->textCursor().hasSelection());
    m_cut->setEnabled(writable && textSelected);
    m_copy->setEnabled(textSelected || (table && Utils::TableCommands(table).canCopy()));
    m_paste->setEnabled((writable && hasClipboardText()) ||
                        (table && Utils::TableCommands(table).canPaste()));
    m_fillDown->setEnabled(table && Utils::TableCommands(table).canFillDown());
    m_selectAll->setEnabled((line && !line->text().isEmpty()) ||
                            (text && !text->document()->isEmpty()) ||
                            (table && table->model()->rowCount() > 0));
}

void EditMenu::updateFind(bool enabled)
{
    for (QAction *action : {m_find, m_findNext, m_findPrevious}) {
        action->setEnabled(enabled);
        action->setStatusTip(enabled ? tr("Find rows of the table by a text") : noTable());
    }
}

QString EditMenu::noTable()
{
    return tr("Find searches tables, and there is none in view.");
}

/// The table that had the focus last, or the first one of the current view; null if none is in
/// sight.
QTableView *EditMenu::searchedTable() const
{
    QTableView *last = m_findBar->table();
    if (last && last->isVisible())
        return last;
    const Core::IView *view = Core::ViewArea::get()->activeView();
    const auto tables = view ? view->findChildren<QTableView *>() : QList<QTableView *>();
    for (QTableView *table : tables) {
        if (table->isVisible() && table->model())
            return table;
    }
    return nullptr;
}

void EditMenu::cut()
{
    const Target to = target();
    if (to.line)
        to.line->cut();
    else if (to.text)
        to.text->cut();
}

void EditMenu::copy()
{
    const Target to = target();
    if (to.line)
        to.line->copy();
    else if (to.text)
        to.text->copy();
    else if (to.table)
        Utils::TableCommands(to.table).copy();
}

void EditMenu::paste()
{
    const Target to = target();
    if (to.line)
        to.line->paste();
    else if (to.text)
        to.text->paste();
    else if (to.table)
        Utils::TableCommands(to.table).paste();
}

void EditMenu::fillDown()
{
    if (const Target to = target(); to.table)
        Utils::TableCommands(to.table).fillDown();
}

void EditMenu::selectAll()
{
    const Target to = target();
    if (to.line)
        to.line->selectAll();
    else if (to.text)
        to.text->selectAll();
    else if (to.table)
        to.table->selectAll();
}

void EditMenu::search(void (Utils::FindBar::*command)())
{
    if (QTableView *table = searchedTable()) {
        m_findBar->setTable(table);
        (m_findBar->*command)();
        return;
    }
    QStatusTipEvent reason(noTable());
    QApplication::sendEvent(m_window, &reason);
}

void EditMenu::find()
{
    search(&Utils::FindBar::open);
}

void EditMenu::findNext()
{
    search(&Utils::FindBar::findNext);
}

void EditMenu::findPrevious()
{
    search(&Utils::FindBar::findPrevious);
}

} // namespace Workbench
