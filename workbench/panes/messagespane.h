#pragma once

#include <QPlainTextEdit>

namespace Workbench {

/// What the program and its child processes have to say, newest at the end. Texts are shown as they
/// are: nothing in them is taken for markup. A place in a file that a child process names
/// ("rtl/top.v:12") is a link, for the mouse and for Enter.
class MessagesPane : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MessagesPane(QWidget *parent = nullptr);

    /// A line of the program itself, with the time.
    void note(const QString &text);

    /// A failure, with the time, emphasised.
    void fail(const QString &text);

    /// A line of a child process, in a fixed font.
    void output(const QString &text);

    /// What follows belongs to a project, in whose `folder` the names of files start.
    void beginProject(const QString &folder);

    /// Takes away what belongs to the project.
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
    QString m_pressed;   // the link that the mouse button went down on
};

} // namespace Workbench
