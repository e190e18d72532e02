#include "workbench/panes/messagespane.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QMenu>
#include <QScrollBar>

#include <memory>

namespace Workbench {

namespace {

constexpr int MaximumLines = 20000;

} // namespace

MessagesPane::MessagesPane(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("messages"));
    setAccessibleName(tr("Messages"));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setMaximumBlockCount(MaximumLines);
    setFrameShape(QFrame::NoFrame);
    setPlaceholderText(tr("Messages of the program and of synthesis runs appear here."));
}

void MessagesPane::note(const QString &text)
{
    append(text, QTextCharFormat());
}

void MessagesPane::fail(const QString &text)
{
    // Red that can be read on the palette's base, light or dark.
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    QTextCharFormat format;
    format.setForeground(dark ? QColor(255, 120, 110) : QColor(176, 0, 0));
    format.setFontWeight(QFont::Bold);
    append(text, format);
}

void MessagesPane::output(const QString &text)
{
    QTextCharFormat format;
    format.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    append(text, format);
}

void MessagesPane::append(const QString &text, const QTextCharFormat &format)
{
    // Follow the end only for a reader who is at the end.
    QScrollBar *bar = verticalScrollBar();
    const bool follow = bar->value() == bar->maximum();

    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!document()->isEmpty())
        cursor.insertBlock();
    cursor.insertText(text, format);

    if (follow)
        bar->setValue(bar->maximum());
}

void MessagesPane::contextMenuEvent(QContextMenuEvent *event)
{
    const std::unique_ptr<QMenu> menu(createStandardContextMenu(event->pos()));
    menu->addSeparator();
    menu->addAction(tr("Clear"), this, &MessagesPane::clear);
    menu->exec(event->globalPos());
}

} // namespace Workbench
