#include "core/projectmanager.h"

#include "core/project.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"

namespace Core {

Project *ProjectManager::currentProject()
{
    return ProjectSession::get()->current();
}

ProjectSession *ProjectSession::get()
{
    // Intentionally leaked, like every service that others refer to.
    static ProjectSession *const self = new ProjectSession;
    return self;
}

Project *ProjectSession::open(const QString &path, QString *error)
{
    std::unique_ptr<Project> project = ProjectFile::load(path, error);
    if (!project)
        return nullptr;
    setCurrent(std::move(project));
    return current();
}

void ProjectSession::close()
{
    if (m_current)
        setCurrent(nullptr);
}

void ProjectSession::setCurrent(std::unique_ptr<Project> project)
{
    m_current.swap(project);
    emit currentProjectChanged();
}

} // namespace Core
