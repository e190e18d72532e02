#pragma once

#include <QPlainTextEdit>

namespace Workbench {

/// What the program and its child processes have to say, newest at the end. Texts are shown as they
/// are: nothing in them is taken for markup.
class MessagesPane : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MessagesPane(QWidget *parent = nullptr);

    /// A line of the program itself.
    void note(const QString &text);

    /// A failure, emphasised.
    void fail(const QString &text);

    /// A line of a child process, in a fixed font.
    void output(const QString &text);

private:
    void append(const QString &text, const QTextCharFormat &format);
    void contextMenuEvent(QContextMenuEvent *event) override;
};

} // namespace Workbench
