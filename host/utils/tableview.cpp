#include "utils/tableview.h"

#include "host/utils/celltyper_p.h"
#include "host/utils/columnsharing.h"
#include "host/utils/tablecommands.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

namespace Utils {

namespace {

const QKeySequence &fillDownKeys()
{
    static const QKeySequence keys(Qt::CTRL + Qt::Key_D);
    return keys;
}

bool isFillDown(const QKeyEvent *event)
{
    return QKeySequence(int(event->modifiers()) + event->key()) == fillDownKeys();
}

bool isEnter(const QKeyEvent *event, Qt::KeyboardModifiers modifiers)
{
    return (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
           (event->modifiers() & ~Qt::KeypadModifier) == modifiers;
}

/// Whether the value of a cell, or its text, is a number or not given yet.
bool holdsNumber(const QModelIndex &index)
{
    const QVariant value = index.data(Qt::EditRole);
    bool isNumber = false;
    value.toDouble(&isNumber);
    return isNumber || value.toString().isEmpty();
}

} // namespace

class TableViewPrivate
{
public:
    QString typed;
    QElapsedTimer sinceTyped;
};

TableView::TableView(QWidget *parent)
    : QTableView(parent)
    , d(std::make_unique<TableViewPrivate>())
{
    setTabKeyNavigation(false);
    fitRowHeight();
    new ColumnSharing(this);
}

TableView::~TableView() = default;

bool TableView::event(QEvent *event)
{
    // Prevents a window shortcut with the same keys from taking precedence.
    if (event->type() == QEvent::ShortcutOverride) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste) ||
            isFillDown(key) || isEnter(key, Qt::ControlModifier)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void TableView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        TableCommands(this).copy();
    } else if (state() == EditingState) {
        // Keys that an open editor ignores must not change cells.
        QTableView::keyPressEvent(event);
    } else if (event->matches(QKeySequence::Paste)) {
        TableCommands(this).paste();
    } else if (isFillDown(event)) {
        TableCommands(this).fillDown();
    } else if (isEnter(event, Qt::ControlModifier)) {
        TableCommands(this).fillSelection();
    } else if ((isEnter(event, Qt::NoModifier) || isEnter(event, Qt::ShiftModifier)) &&
               !isSignalConnected(QMetaMethod::fromSignal(&QTableView::activated))) {
        move(isEnter(event, Qt::NoModifier) ? 1 : -1);
    } else if (!typeNumber(event)) {
        QTableView::keyPressEvent(event);
    }
}

void TableView::move(int rows)
{
    const QModelIndex target = currentIndex().siblingAtRow(currentIndex().row() + rows);
    if (target.isValid())
        setCurrentIndex(target);
}

/// Opens the editor of a number with the first key typed.
bool TableView::typeNumber(QKeyEvent *event)
{
    const QString text = event->text();
    const QModelIndex index = currentIndex();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (text.size() != 1 || !QStringLiteral("0123456789+-.,").contains(text) ||
        modifiers != Qt::NoModifier || !index.flags().testFlag(Qt::ItemIsEditable) ||
        !holdsNumber(index) || !edit(index, AllEditTriggers, event))
        return false;
    if (QWidget *editor = indexWidget(index))
        QCoreApplication::sendEvent(editor, event); // replaces its text, which is selected
    return true;
}

bool TableView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const bool editing = QTableView::edit(index, trigger, event);
    if (QWidget *editor = editing ? indexWidget(index) : nullptr) {
        editor->removeEventFilter(this);
        editor->installEventFilter(this); // before the delegate, which takes every Enter
    }
    return editing;
}

bool TableView::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(watched);
    if (event->type() == QEvent::KeyPress && editor && editor->parent() == viewport() &&
        isEnter(static_cast<QKeyEvent *>(event), Qt::ControlModifier)) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
        TableCommands(this).fillSelection();
        return true;
    }
    return QTableView::eventFilter(watched, event);
}

/// A selection in a table without the focus looks inactive.
QStyleOptionViewItem TableView::viewOptions() const
{
    QStyleOptionViewItem option = QTableView::viewOptions();
    const QWidget *focus = QApplication::focusWidget();
    if (focus != this && !isAncestorOf(focus)) {
        const QColor highlight = palette().color(QPalette::Highlight);
        const QColor base = palette().color(QPalette::Base);
        const auto mixed = [](int a, int b) { return (a + 3 * b) / 4; };
        option.palette.setColor(QPalette::Highlight, QColor(mixed(highlight.red(), base.red()),
                                                            mixed(highlight.green(), base.green()),
                                                            mixed(highlight.blue(), base.blue())));
        option.palette.setColor(QPalette::HighlightedText, palette().color(QPalette::Text));
    }
    return option;
}

/// Rows are as high as a line of text.
void TableView::fitRowHeight()
{
    const int height =
        fontMetrics().height() + 2 * style()->pixelMetric(QStyle::PM_FocusFrameVMargin) + 2;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

void TableView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitRowHeight();
}

bool TableView::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QTableView::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = indexAt(help->pos());
    QString text = shownText(this, index, Qt::ToolTipRole);
    if (Qt::mightBeRichText(text))
        text = QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped());
    QToolTip::showText(help->globalPos(), text, viewport(), visualRect(index));
    event->setAccepted(!text.isEmpty());
    return true;
}

void TableView::keyboardSearch(const QString &search)
{
    if (search.isEmpty() || !model() || model()->rowCount(rootIndex()) == 0) {
        d->typed.clear();
        return;
    }
    if (!d->sinceTyped.isValid() || d->sinceTyped.hasExpired(QApplication::keyboardInputInterval()))
        d->typed.clear();
    d->sinceTyped.start();
    // Repeating a letter moves on to the next row.
    const bool again = d->typed == search;
    if (!again)
        d->typed += search;

    int column = 0;
    while (column < horizontalHeader()->count() && isColumnHidden(column))
        ++column;
    const int rowCount = model()->rowCount(rootIndex());
    const bool onward = again || d->typed == search;
    const int row =
        (qMax(0, currentIndex().row()) + (onward && currentIndex().isValid())) % rowCount;
    const QModelIndex start = model()->index(row, column, rootIndex());
    QModelIndexList hits =
        model()->match(start, Qt::DisplayRole, d->typed, 1, Qt::MatchStartsWith | Qt::MatchWrap);
    if (hits.isEmpty())
        hits =
            model()->match(start, Qt::DisplayRole, d->typed, 1, Qt::MatchContains | Qt::MatchWrap);
    if (!hits.isEmpty())
        setCurrentIndex(currentIndex().isValid()
                            ? hits.first().siblingAtColumn(currentIndex().column())
                            : hits.first());
}

} // namespace Utils
