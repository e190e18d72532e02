#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace Workbench {

class Documents;
class ProjectCommands;

/// Opens a netlist of its own: as the project in its folder that has it, or else as a new project
/// that is proposed to the user.
class NetlistOpener : public QObject
{
    Q_OBJECT

public:
    /// `window` is the parent of dialogs; none of the three is owned.
    NetlistOpener(Documents *documents, ProjectCommands *projects, QWidget *window);

    /// A file that begins like a netlist but is none opens as text.
    void open(const QString &path);

signals:
    void message(const QString &text);

private:
    void propose(const QString &path);

    Documents *const m_documents;
    ProjectCommands *const m_projects;
    QWidget *const m_window;
};

} // namespace Workbench
