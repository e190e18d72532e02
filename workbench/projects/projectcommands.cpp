#include "workbench/projects/projectcommands.h"

#include "workbench/documents.h"
#include "workbench/projects/lastproject.h"
#include "workbench/projects/projectdialog.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/utils/dialogs.h"

#include <QAction>
#include <QDir>
#include <QPointer>

namespace Workbench {

ProjectCommands::ProjectCommands(Documents *documents, QWidget *window)
    : QObject(window)
    , m_documents(documents)
    , m_window(window)
    , m_last(new LastProject(this))
    , m_new(new QAction(tr("&Project\u2026"), this))
    , m_settings(new QAction(tr("Project se&ttings\u2026"), this))
    , m_close(new QAction(tr("Close pro&ject"), this))
{
    m_new->setObjectName(QStringLiteral("newProject"));
    m_new->setStatusTip(tr("Create a project for a design of your own"));
    m_settings->setObjectName(QStringLiteral("projectSettings"));
    m_settings->setStatusTip(tr("Change the project's sources, device, synthesis and netlist"));
    m_close->setObjectName(QStringLiteral("closeProject"));
    m_close->setStatusTip(tr("Close the project and its views"));
    connect(m_new, &QAction::triggered, this, &ProjectCommands::createFromFolder);
    connect(m_settings, &QAction::triggered, this, &ProjectCommands::changeSettings);
    connect(m_close, &QAction::triggered, this, &ProjectCommands::closeProject);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &ProjectCommands::update);
    update();
}

// The program is often started in the folder of a design.
bool ProjectCommands::createFromFolder()
{
    ProjectSettings known;
    known.folder = QDir::currentPath();
    return createProject(known);
}

bool ProjectCommands::createProject(const ProjectSettings &known, const QString &deviceRemark)
{
    const QPointer<ProjectCommands> self(this);
    Utils::GuardedDialog dialog(ProjectDialog::forNew(known, deviceRemark, m_window));
    if (dialog.exec() != QDialog::Accepted || !self)
        return false;
    const QString path = dialog->settings().projectPath();
    if (m_documents->openProject(path))
        return true;
    if (self) {
        emit message(tr("The project %1 has been created; it is not open.")
                         .arg(QDir::toNativeSeparators(path)));
    }
    return false;
}

void ProjectCommands::changeSettings()
{
    if (!Core::ProjectFile::current())
        return;
    Utils::GuardedDialog dialog(ProjectDialog::forCurrent(m_window));
    dialog.exec();
}

void ProjectCommands::closeProject()
{
    const QPointer<ProjectCommands> self(this);
    if (m_documents->closeProject() && self)
        m_last->forget();
}

void ProjectCommands::update()
{
    const bool isOpen = Core::ProjectFile::current();
    m_settings->setEnabled(isOpen);
    m_close->setEnabled(isOpen);
}

} // namespace Workbench
