#pragma once

#include <QObject>

namespace Workbench {

class MessagesPane;

/// Reports problems of the open project's device and netlists in the messages pane, and removes the
/// messages of a closed project.
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
