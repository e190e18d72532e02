#include "workbench/commandline.h"

#include "workbench/cli/command.h"

#include <QCommandLineParser>

namespace Workbench {

namespace {

// The parser and its options.
struct Declared
{
    Declared()
    {
        parser.setApplicationDescription(QStringLiteral(
            "Opens synthesized designs and edits their power analysis configurations."));
        parser.addPositionalArgument(
            QStringLiteral("FILE"),
            QStringLiteral("Configurations (.vlr) or a netlist (.json) to open."),
            QStringLiteral("[FILE ...]"));
        parser.addOptions({project, plugins, tour, netlistInfo, help, version});
    }

    QCommandLineOption project{QStringLiteral("project"), QStringLiteral("Open the project FILE."),
                               QStringLiteral("FILE")};
    QCommandLineOption plugins{
        QStringLiteral("plugins"),
        QStringLiteral("Load plug-ins from DIR instead of the folder beside the program (also the "
                       "environment variable WORKBENCH_PLUGINS)."),
        QStringLiteral("DIR")};
    QCommandLineOption tour{
        QStringLiteral("tour"),
        QStringLiteral("Drive the program through its main job on a copy of the sample project, "
                       "leave a picture of each step and the configuration in DIR, and fail at the "
                       "first unexpected result."),
        QStringLiteral("DIR")};
    QCommandLineOption netlistInfo{
        QStringLiteral("netlist-info"),
        QStringLiteral(
            "Print the object counts of the netlist FILE.json as JSON. Needs no display."),
        QStringLiteral("FILE.json")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Print this help.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               QStringLiteral("Print the version.")};
    QCommandLineParser parser;
};

CommandLine badUsage(const QString &message)
{
    CommandLine result;
    result.task = CommandLine::BadUsage;
    result.errorMessage = message;
    return result;
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    Declared declared;
    const QCommandLineParser &parser = declared.parser;
    if (!declared.parser.parse(arguments))
        return badUsage(parser.errorText());

    for (const QCommandLineOption &option :
         {declared.project, declared.plugins, declared.tour, declared.netlistInfo}) {
        const QString name = option.names().constFirst();
        if (parser.values(option).size() > 1)
            return badUsage(QStringLiteral("The option --%1 is given more than once.").arg(name));
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return badUsage(QStringLiteral("The option --%1 needs a value.").arg(name));
    }

    CommandLine result;
    result.project = parser.value(declared.project);
    result.files = parser.positionalArguments();
    result.tourFolder = parser.value(declared.tour);
    result.netlistFile = parser.value(declared.netlistInfo);
    result.plugins = parser.isSet(declared.plugins) ? parser.value(declared.plugins)
                                                    : qEnvironmentVariable("WORKBENCH_PLUGINS");

    if (parser.isSet(declared.help)) {
        result.task = PrintHelp;
        return result;
    }
    if (parser.isSet(declared.version)) {
        result.task = PrintVersion;
        return result;
    }
    const bool opens = !result.files.isEmpty() || parser.isSet(declared.project);
    const int tasks =
        int(opens) + int(parser.isSet(declared.tour)) + int(parser.isSet(declared.netlistInfo));
    if (tasks > 1) {
        return badUsage(QStringLiteral(
            "--tour and --netlist-info cannot be combined with each other or with files."));
    }
    if (parser.isSet(declared.tour))
        result.task = RunTour;
    else if (parser.isSet(declared.netlistInfo))
        result.task = PrintNetlistInfo;
    return result;
}

QString CommandLine::helpText()
{
    QString text = Declared().parser.helpText();
    text += QStringLiteral("\nCommands (workbench COMMAND --help):\n");
    for (const Command &command : allCommands())
        text += QStringLiteral("  %1  %2\n")
                    .arg(QLatin1String(command.name), -10)
                    .arg(QLatin1String(command.summary));
    return text;
}

} // namespace Workbench
