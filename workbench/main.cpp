#include "workbench/commandline.h"
#include "workbench/session.h"
#include "workbench/tour/tour.h"

#include "host/nlsdata/netlistinfo.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

using namespace Workbench;

namespace {

constexpr int BadUsageStatus = 2;

QStringList argumentList(int argc, char *argv[])
{
    QStringList result;
    for (int i = 0; i < argc; ++i)
        result.append(QString::fromLocal8Bit(argv[i]));
    return result;
}

void describeApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("workbench"));
    QCoreApplication::setOrganizationName(QStringLiteral("workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(WORKBENCH_VERSION));
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
        return BadUsageStatus;
    }
}

int showWindow(const CommandLine &commandLine)
{
    Session session(commandLine.plugins);
    MainWindow &window = session.window();
    window.show();
    // The window is on the screen before large files are read.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (!commandLine.project.isEmpty())
        window.open(commandLine.project);
    for (const QString &file : commandLine.files)
        window.open(file);
    return QApplication::exec();
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

} // namespace

int main(int argc, char *argv[])
{
    const CommandLine commandLine = CommandLine::parse(argumentList(argc, argv));
    const bool tour = commandLine.task == CommandLine::RunTour;
    if (!tour && commandLine.task != CommandLine::ShowWindow) {
        QCoreApplication application(argc, argv);
        describeApplication();
        return runOnConsole(commandLine);
    }

    if (!hasDisplay() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        if (!tour) {
            std::fputs("workbench: There is no display to show a window on.\n", stderr);
            return 1;
        }
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    describeApplication();
    return tour ? runTour(commandLine.tourFolder, commandLine.plugins) : showWindow(commandLine);
}
