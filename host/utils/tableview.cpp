#include "utils/tableview.h"

#include "host/utils/celltyper_p.h"
#include "host/utils/tableclipboard_p.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStatusTipEvent>
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
}

TableView::~TableView() = default;

bool TableView::event(QEvent *event)
{
    // So that a shortcut of the window with the same keys does not come first.
    if (event->type() == QEvent::ShortcutOverride) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste) ||
            isFillDown(key)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void TableView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        const QString text = selectionText(this);
        if (!text.isEmpty())
            QApplication::clipboard()->setText(text);
    } else if (state() == EditingState) {
        // What an open editor does not take itself must not change cells behind its back.
        QTableView::keyPressEvent(event);
    } else if (event->matches(QKeySequence::Paste)) {
        run(this, [this] { return pasteText(this, QApplication::clipboard()->text()); });
    } else if (isFillDown(event)) {
        run(this, [this] { return fillDown(this); });
    } else {
        QTableView::keyPressEvent(event);
    }
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
    // The same letter again goes on to the next row.
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
