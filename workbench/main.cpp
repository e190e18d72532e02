#include "workbench/application.h"
#include "workbench/cli/command.h"
#include "workbench/commandline.h"
#include "workbench/session.h"

#include "host/nlsdata/netlistinfo.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <cstdio>

using namespace Workbench;

namespace {

QStringList argumentList(int argc, char *argv[])
{
    QStringList result;
    for (int i = 0; i < argc; ++i)
        result.append(QString::fromLocal8Bit(argv[i]));
    return result;
}

// Tasks that need no window and no display.
int runOnConsole(const CommandLine &commandLine)
{
    switch (commandLine.task) {
    case CommandLine::PrintHelp:
        std::fputs(qPrintable(CommandLine::helpText()), stdout);
        return 0;
    case CommandLine::PrintVersion:
        std::printf("workbench %s\n", WORKBENCH_VERSION);
        return 0;
    case CommandLine::PrintNetlistInfo: {
        QString error;
        const QJsonObject info = NlsData::netlistInfo(commandLine.netlistFile, &error);
        if (info.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
        std::fputs(QJsonDocument(info).toJson().constData(), stdout);
        return 0;
    }
    default:
        std::fprintf(stderr, "workbench: %s\nTry: workbench --help\n",
                     qPrintable(commandLine.errorMessage));
        return BAD_USAGE_STATUS;
    }
}

int showWindow(const CommandLine &commandLine)
{
    Session session(commandLine.plugins);
    MainWindow &window = session.window();
    window.show();
    // Show the window before reading large files.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (!commandLine.project.isEmpty())
        window.open(commandLine.project);
    for (const QString &file : commandLine.files)
        window.open(file);
    if (commandLine.project.isEmpty() && commandLine.files.isEmpty())
        window.openLastProject();
    return QApplication::exec();
}

// The tour is a separate program beside this one.
int runTour(const CommandLine &commandLine)
{
    const QString program =
        QCoreApplication::applicationDirPath() + QStringLiteral("/workbench-tour");
    QStringList arguments{commandLine.tourFolder};
    if (!commandLine.plugins.isEmpty())
        arguments << QStringLiteral("--plugins") << commandLine.plugins;
    const int status = QProcess::execute(program, arguments);
    if (status < 0)
        std::fprintf(stderr, "workbench: %s cannot be run.\n", qPrintable(program));
    return status < 0 ? 1 : status;
}

} // namespace

int main(int argc, char *argv[])
{
    const QStringList arguments = argumentList(argc, argv);
    prepareApplication();
    if (const Command *command = findCommand(arguments.value(1))) {
        QCoreApplication application(argc, argv);
        exitWhenInterrupted();
        return command->run(arguments.mid(2));
    }
    const CommandLine commandLine = CommandLine::parse(arguments);
    if (commandLine.task != CommandLine::ShowWindow) {
        QCoreApplication application(argc, argv);
        return commandLine.task == CommandLine::RunTour ? runTour(commandLine)
                                                        : runOnConsole(commandLine);
    }
    if (!hasDisplay()) {
        std::fputs("workbench: no display is available.\n", stderr);
        return 1;
    }
    QApplication application(argc, argv);
    return showWindow(commandLine);
}
