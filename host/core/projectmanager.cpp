#include "core/projectmanager.h"

#include "core/project.h"
#include "host/core/project_p.h"
#include "host/core/projectmanager_p.h"

namespace Core {

Project *ProjectManager::currentProject()
{
    return ProjectManagerPrivate::get()->current();
}

ProjectManagerPrivate *ProjectManagerPrivate::get()
{
    // Never destroyed, as every service that others refer to.
    static ProjectManagerPrivate *const self = new ProjectManagerPrivate;
    return self;
}

Project *ProjectManagerPrivate::open(const QString &path, QString *error)
{
    std::unique_ptr<Project> project = ProjectPrivate::load(path, error);
    if (!project)
        return nullptr;
    setCurrent(std::move(project));
    return current();
}

void ProjectManagerPrivate::close()
{
    if (m_current)
        setCurrent(nullptr);
}

void ProjectManagerPrivate::setCurrent(std::unique_ptr<Project> project)
{
    m_current.swap(project);
    emit currentProjectChanged();
}

} // namespace Core
