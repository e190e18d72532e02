#pragma once

#include <QObject>
#include <QString>

class QAction;
class QMenu;
class QWidget;

namespace Workbench {

class Documents;
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

    /// Asks for a new project, with what is known of it, and opens it. False when the user refused.
    bool createProject(const ProjectSettings &known, const QString &deviceRemark = QString());

signals:
    void message(const QString &text);

private:
    void createFromFolder();
    void changeSettings();
    void update();

    Documents *const m_documents;
    QWidget *const m_window;
    QAction *m_new;
    QAction *m_settings;
    QAction *m_close;
};

} // namespace Workbench
