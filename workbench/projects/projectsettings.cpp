#include "workbench/projects/projectsettings.h"

#include "host/core/projectfile.h"

#include "core/project.h"
#include "te/constants.h"

#include <QDir>
#include <QFile>

#include <memory>

namespace Workbench {

ProjectSettings ProjectSettings::of(const Core::ProjectFile &project)
{
    ProjectSettings result;
    result.name = project.name();
    result.folder = project.folder();
    result.sources = project.sources();
    result.top = project.top();
    result.device = project.device();
    if (!project.synthesisProgram().isEmpty())
        result.command = QStringList(project.synthesisProgram()) + project.synthesisArguments();
    result.netlist = project.resultFile(QLatin1String(TE::RES_NETLIST));
    return result;
}

QString ProjectSettings::projectPath() const
{
    return QDir(folder).filePath(name + QLatin1String(".fpgaproj"));
}

QString ProjectSettings::relative(const QString &path) const
{
    return path.isEmpty() ? QString() : QDir(folder).relativeFilePath(path);
}

bool ProjectSettings::apply(Core::ProjectFile *project, QString *error) const
{
    const auto listening = QObject::connect(project, &Core::ProjectFile::saveFailed,
                                            [error](const QString &cause) { *error = cause; });
    const bool saved = project->changeTogether([&] {
        if (name != project->name())
            project->setName(name);
        project->setDevice(device);
        project->setTop(top);
        project->setSources(sources);
        project->setSynthesis(command.value(0), command.mid(1));
        project->setResultFile(QLatin1String(TE::RES_NETLIST), netlist);
    });
    QObject::disconnect(listening);
    return saved;
}

bool ProjectSettings::create(QString *error) const
{
    const QString path = projectPath();
    if (!Core::ProjectFile::create(path, name, error))
        return false;
    const std::unique_ptr<Core::Project> project = Core::ProjectFile::load(path, error);
    if (project && apply(Core::ProjectFile::of(project.get()), error))
        return true;
    QFile::remove(path);
    return false;
}

} // namespace Workbench
