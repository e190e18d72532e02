#pragma once

#include <QString>
#include <QStringList>

namespace Core {
class ProjectFile;
}

namespace Workbench {

/// What the user says about a project: the content of its settings page.
struct ProjectSettings
{
    QString name;
    QString folder;      ///< absolute; the project file is in it, and synthesis runs there
    QStringList sources; ///< absolute paths
    QString top;         ///< the top module; empty: left to synthesis
    QString device;      ///< identifier; empty: none chosen
    QStringList command; ///< program and arguments; empty: none
    QString netlist;     ///< absolute path of what synthesis writes; empty: none

    /// Those of a project.
    static ProjectSettings of(const Core::ProjectFile &project);

    /// Where the file of a new project is written: the name with its suffix, in the folder.
    QString projectPath() const;

    /// `path` as a project file and a command in the folder have it.
    QString relative(const QString &path) const;

    /// Puts what differs into `project`; members and lists keep their order. The device of the
    /// current project should be chosen by TE::DeviceSelection before. False when the project could
    /// not be saved, with one sentence in `error`.
    bool apply(Core::ProjectFile *project, QString *error) const;

    /// Writes the file of a new project whole, or not at all: false with one sentence in `error`.
    bool create(QString *error) const;
};

} // namespace Workbench
