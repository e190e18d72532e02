#pragma once

#include <QPlainTextEdit>

namespace Workbench {

/// Messages of the program and output of its child processes, newest at the end, as plain text. A
/// place in a file that a child process names ("rtl/top.v:12") is a link, for mouse and Enter.
class MessagesPane : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MessagesPane(QWidget *parent = nullptr);

    /// A message of the program, with the time.
    void note(const QString &text);

    /// A failure, with the time, emphasized.
    void fail(const QString &text);

    /// A line of a child process, in a fixed font.
    void output(const QString &text);

    /// The following messages belong to a project; relative file names start in its `folder`.
    void beginProject(const QString &folder);

    /// Removes the messages of the project.
    void endProject();

signals:
    /// A link was followed; `line` counts from 1.
    void placeActivated(const QString &path, int line);

protected:
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void append(const QString &text, const QTextCharFormat &format, bool withPlaces = false);
    void insertPlaces(QTextCursor *cursor, const QString &text, const QTextCharFormat &format);
    QString linkAt(const QPoint &point) const;
    void follow(const QString &anchor);
    void contextMenuEvent(QContextMenuEvent *event) override;

    QString m_folder;
    QTextCursor m_begin; // of the project's messages; null without a project
    QString m_pressed;   // link under the pressed mouse button
};

} // namespace Workbench
