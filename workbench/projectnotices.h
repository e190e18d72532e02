#pragma once

#include <QObject>

namespace Workbench {

class MessagesPane;

/// Keeps the messages pane to the open project: tells what is wrong with its device and with
/// netlists as they are read, and takes away the messages of a project that is closed.
class ProjectNotices : public QObject
{
    Q_OBJECT

public:
    /// `messages` is not owned.
    ProjectNotices(MessagesPane *messages, QObject *parent);

private:
    void onProjectChanged();

    MessagesPane *const m_messages;
    QString m_project; // path of the open one
};

} // namespace Workbench
