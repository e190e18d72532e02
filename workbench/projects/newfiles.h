#pragma once

#include <QObject>
#include <QString>

class QAction;
class QMenu;
class QWidget;

namespace Workbench {

class Documents;
class ProjectCommands;
class ProjectTree;

/// Runs the wizards that plug-ins publish. Offers to create a project if none is open, and selects
/// and opens the file that a wizard adds to the project.
class NewFiles : public QObject
{
    Q_OBJECT

public:
    /// `window` is the parent of dialogs; none of the three is owned.
    NewFiles(Documents *documents, ProjectCommands *projects, QWidget *window);

    /// Adds an entry per wizard to `menu`, above `before`.
    void fill(QMenu *menu, QAction *before);

    /// Runs the first wizard, which creates configurations; does nothing without one.
    void createConfiguration();

signals:
    /// The file has been added to the project.
    void added(const QString &path);
    void message(const QString &text);

private:
    void run(int wizard);
    bool askForProject();
    void show(const QString &path);

    Documents *const m_documents;
    ProjectCommands *const m_projects;
    QWidget *const m_window;
};

} // namespace Workbench
