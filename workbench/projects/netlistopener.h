#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace Workbench {

class Documents;
class ProjectCommands;

/// Opens a netlist that is not part of the open project: with the project in its folder that names
/// it, or else by proposing a new project.
class NetlistOpener : public QObject
{
    Q_OBJECT

public:
    /// `window` is the parent of dialogs; none of the three is owned.
    NetlistOpener(Documents *documents, ProjectCommands *projects, QWidget *window);

    /// A file that only looks like a netlist opens as text.
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
