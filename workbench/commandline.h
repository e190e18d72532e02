#pragma once

#include <QString>
#include <QStringList>

namespace Workbench {

/// What the program was asked to do on its command line.
class CommandLine
{
public:
    enum Task {
        ShowWindow,
        RunTour,
        PrintNetlistInfo,
        PrintHelp,
        PrintVersion,
        BadUsage,
    };

    /// Reads `arguments`, the program's name first. Needs no application object.
    static CommandLine parse(const QStringList &arguments);

    /// The text of --help. Needs an application object.
    static QString helpText();

    Task task = ShowWindow;
    QString project;      ///< --project; empty: none
    QStringList files;    ///< configurations to open
    QString plugins;      ///< folder of plug-ins; empty: `plugins` beside the program
    QString tourFolder;   ///< --tour
    QString netlistFile;  ///< --netlist-info
    QString errorMessage; ///< one sentence, for BadUsage
};

} // namespace Workbench
