#include "workbench/application.h"
#include "workbench/tour/tour.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>

using namespace Workbench;

int main(int argc, char *argv[])
{
    if (!hasDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    prepareApplication();
    QApplication application(argc, argv);

    const QCommandLineOption plugins(QStringLiteral("plugins"),
                                     QStringLiteral("Load plug-ins from DIR."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption sample(QStringLiteral("sample"),
                                    QStringLiteral("Use the sample project in DIR."),
                                    QStringLiteral("DIR"), sampleFolder());
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Drives the workbench through its main job on a copy of the sample project. "
                       "`workbench --tour DIR` runs it."));
    parser.addHelpOption();
    parser.addOptions({plugins, sample});
    parser.addPositionalArgument(QStringLiteral("DIR"),
                                 QStringLiteral("Folder for the pictures and the configuration."));
    parser.process(application);
    const QStringList folders = parser.positionalArguments();
    if (folders.size() != 1) {
        std::fputs("workbench-tour: exactly one folder is required.\nTry: workbench-tour --help\n",
                   stderr);
        return BAD_USAGE_STATUS;
    }
    return runTour(folders.first(), parser.value(sample), parser.value(plugins));
}
