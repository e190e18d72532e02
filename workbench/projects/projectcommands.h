#pragma once

#include <QObject>
#include <QString>

class QAction;
class QMenu;
class QWidget;

namespace Workbench {

class Documents;
class LastProject;
struct ProjectSettings;

/// The commands that create a project, change its settings and close it.
class ProjectCommands : public QObject
{
    Q_OBJECT

public:
    /// `window` is the parent of dialogs; neither is owned.
    ProjectCommands(Documents *documents, QWidget *window);

    QAction *newAction() const { return m_new; }
    QAction *settingsAction() const { return m_settings; }
    QAction *closeAction() const { return m_close; }
    LastProject *lastProject() const { return m_last; }

    /// Asks for a new project, prefilled with `known`, and opens it. False if the user cancels.
    bool createProject(const ProjectSettings &known, const QString &deviceRemark = QString());

    /// The same for a design in the current folder.
    bool createFromFolder();

signals:
    void message(const QString &text);

private:
    void changeSettings();
    void closeProject();
    void update();

    Documents *const m_documents;
    QWidget *const m_window;
    LastProject *const m_last;
    QAction *m_new;
    QAction *m_settings;
    QAction *m_close;
};

} // namespace Workbench
