#pragma once

#include <QString>
#include <QStringList>

namespace Core {
class ProjectFile;
}

namespace Workbench {

/// The settings of a project that the user can edit.
struct ProjectSettings
{
    QString name;
    QString folder;      ///< absolute; the project file is in it, and synthesis runs there
    QStringList sources; ///< absolute paths
    QString top;         ///< the top module; empty: left to synthesis
    QString device;      ///< identifier; empty: none chosen
    QStringList command; ///< program and arguments; empty: none
    QString netlist;     ///< absolute path of what synthesis writes; empty: none

    /// The settings of an open project.
    static ProjectSettings of(const Core::ProjectFile &project);

    /// Where the file of a new project is written: the name with its suffix, in the folder.
    QString projectPath() const;

    /// `path` relative to the folder, as the project file and commands contain it.
    QString relative(const QString &path) const;

    /// Writes the changed settings to `project`; members and lists keep their order. Choose the
    /// device of the current project with TE::DeviceSelection first. False if the project could not
    /// be saved, with one sentence in `error`.
    bool apply(Core::ProjectFile *project, QString *error) const;

    /// Writes the file of a new project completely or not at all; then false, with one sentence in
    /// `error`.
    bool create(QString *error) const;
};

} // namespace Workbench
