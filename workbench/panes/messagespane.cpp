#include "workbench/panes/messagespane.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTime>

#include <memory>

namespace Workbench {

namespace {

constexpr int MAXIMUM_LINES = 20000;

QString withTime(const QString &text)
{
    return QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + text;
}

/// The first link in a line; empty when there is none.
QString anchorIn(const QTextBlock &line)
{
    for (auto piece = line.begin(); piece != line.end(); ++piece) {
        if (piece.fragment().charFormat().isAnchor())
            return piece.fragment().charFormat().anchorHref();
    }
    return {};
}

} // namespace

MessagesPane::MessagesPane(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("messages"));
    setAccessibleName(tr("Messages"));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    viewport()->setMouseTracking(true);
    setUndoRedoEnabled(false);
    setMaximumBlockCount(MAXIMUM_LINES);
    setFrameShape(QFrame::NoFrame);
    setMinimumHeight(fontMetrics().height() * 5 / 2);
    setPlaceholderText(tr("Messages of the program and of synthesis runs appear here."));
}

void MessagesPane::note(const QString &text)
{
    append(withTime(text), QTextCharFormat());
}

void MessagesPane::fail(const QString &text)
{
    // Red that can be read on the palette's base, light or dark.
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    QTextCharFormat format;
    format.setForeground(dark ? QColor(255, 120, 110) : QColor(176, 0, 0));
    format.setFontWeight(QFont::Bold);
    append(withTime(text), format);
}

void MessagesPane::output(const QString &text)
{
    QTextCharFormat format;
    format.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    append(text, format, true);
}

void MessagesPane::beginProject(const QString &folder)
{
    m_folder = folder;
    m_begin = QTextCursor(document());
    m_begin.movePosition(QTextCursor::End);
    m_begin.setKeepPositionOnInsert(true);
}

void MessagesPane::endProject()
{
    if (m_begin.isNull())
        return;
    m_begin.setPosition(m_begin.position()); // of the anchor, too
    m_begin.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    m_begin.removeSelectedText();
    m_begin = QTextCursor();
    m_folder.clear();
}

void MessagesPane::append(const QString &text, const QTextCharFormat &format, bool withPlaces)
{
    // Scroll only if the end is in view.
    QScrollBar *bar = verticalScrollBar();
    const bool follow = bar->value() == bar->maximum();

    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!document()->isEmpty())
        cursor.insertBlock();
    if (withPlaces)
        insertPlaces(&cursor, text, format);
    else
        cursor.insertText(text, format);

    if (follow)
        bar->setValue(bar->maximum());
}

/// Inserts a line; places in existing files become links.
void MessagesPane::insertPlaces(QTextCursor *cursor, const QString &text,
                                const QTextCharFormat &format)
{
    static const QRegularExpression place(
        QStringLiteral(R"(([^\s:'"()\[\],;]+\.[A-Za-z]\w*):(\d+))"));
    QTextCharFormat link = format;
    link.setAnchor(true);
    link.setFontUnderline(true);
    // Palettes made for dark windows often keep the dark blue of links.
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    link.setForeground(dark ? QColor(110, 175, 255) : palette().color(QPalette::Link));
    int done = 0;
    for (auto matches = place.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QFileInfo file(QDir(m_folder), match.captured(1));
        if (!file.isFile())
            continue;
        cursor->insertText(text.mid(done, match.capturedStart() - done), format);
        link.setAnchorHref(match.captured(2) + QLatin1Char(':') + file.absoluteFilePath());
        cursor->insertText(match.captured(), link);
        done = match.capturedEnd();
    }
    cursor->insertText(text.mid(done), format);
}

void MessagesPane::follow(const QString &anchor)
{
    const int colon = anchor.indexOf(QLatin1Char(':'));
    if (colon > 0)
        emit placeActivated(anchor.mid(colon + 1), anchor.leftRef(colon).toInt());
}

/// The link at a point of the viewport; empty when there is none.
QString MessagesPane::linkAt(const QPoint &point) const
{
    const QTextCursor cursor = cursorForPosition(point); // the nearest
    const QRect place = cursorRect(cursor);
    const int reach = fontMetrics().maxWidth();
    const bool near = place.adjusted(-reach, 0, reach, 0).contains(point);
    return near ? cursor.charFormat().anchorHref() : QString();
}

void MessagesPane::mouseMoveEvent(QMouseEvent *event)
{
    viewport()->setCursor(linkAt(event->pos()).isEmpty() ? Qt::IBeamCursor
                                                         : Qt::PointingHandCursor);
    QPlainTextEdit::mouseMoveEvent(event);
}

void MessagesPane::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton ? linkAt(event->pos()) : QString();
    QPlainTextEdit::mousePressEvent(event);
}

void MessagesPane::mouseReleaseEvent(QMouseEvent *event)
{
    QPlainTextEdit::mouseReleaseEvent(event);
    if (!m_pressed.isEmpty() && linkAt(event->pos()) == m_pressed && !textCursor().hasSelection())
        follow(m_pressed);
}

void MessagesPane::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter)
        follow(anchorIn(textCursor().block()));
    else
        QPlainTextEdit::keyPressEvent(event);
}

void MessagesPane::contextMenuEvent(QContextMenuEvent *event)
{
    const std::unique_ptr<QMenu> menu(createStandardContextMenu(event->pos()));
    menu->addSeparator();
    menu->addAction(tr("Clear"), this, &MessagesPane::clear);
    menu->exec(event->globalPos());
}

} // namespace Workbench
