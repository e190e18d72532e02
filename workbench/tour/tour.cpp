#include "workbench/tour/tour.h"

#include "workbench/session.h"
#include "workbench/tour/toursteps.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFont>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>
#include <iterator>
#include <memory>

namespace Workbench {

namespace {

constexpr QSize PictureSize(1400, 900);
constexpr int DESKTOP_POINT_SIZE = 10;

struct Step
{
    const char *name;
    void (*run)(const Tour &);
};

constexpr Step STEPS[] = {
    {"create a configuration with the wizard", createFileByWizard},
    {"open it from the project tree", openFileFromProjectTree},
    {"set the operating conditions", setConditions},
    {"set the toggle rate of a net", giveNetsRates},
    {"refuse unusable activity files", refuseUnusableActivityFiles},
    {"bind activity files to an instance and to the top", bindActivityFiles},
    {"see what they cover", seeCoverage},
    {"set the clock enables", setClockEnables},
    {"find ports and edit their values", findAndEditPorts},
    {"sort the ports and remove some", sortAndRemovePorts},
    {"find flip-flops and block SRAMs", findFlipFlopsAndMemories},
    {"save the configuration", saveFile},
    {"close it", closeFile},
    {"reopen it from the recent files", reopenFileFromRecentFiles},
};

bool copyFolder(const QString &from, const QString &to)
{
    QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString target = to + source.mid(from.size());
        if (!QDir().mkpath(QFileInfo(target).path()) || !QFile::copy(source, target))
            return false;
    }
    return QFileInfo::exists(to);
}

// Takes away what an earlier tour left, so that everything in the folder is of this one.
bool prepareFolder(const Tour &tour, const QString &sampleFolder)
{
    QDir folder(tour.folder);
    if (!folder.mkpath(QStringLiteral(".")))
        return false;
    const QStringList old = folder.entryList(
        {QStringLiteral("[0-9][0-9]-*.png"), tour.fileName + QLatin1String(".vlr")}, QDir::Files);
    for (const QString &file : old)
        folder.remove(file);
    QDir(tour.project).removeRecursively();
    return copyFolder(sampleFolder, tour.project);
}

// Runs in the script's thread. An empty result means that all is well.
QString runSteps(const Tour &tour)
{
    int number = 0;
    for (const Step &step : STEPS) {
        std::printf("%2d/%zu  %s\n", ++number, std::size(STEPS), step.name);
        std::fflush(stdout);
        try {
            step.run(tour);
        } catch (const TourFailure &failure) {
            tour.driver.picture(QStringLiteral("failed"));
            return QStringLiteral("%1: %2").arg(QLatin1String(step.name),
                                                QString::fromUtf8(failure.what()));
        }
    }
    return QString();
}

} // namespace

QByteArray Tour::fileText() const
{
    QFile in(file());
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

int runTour(const QString &folder, const QString &sampleFolder, const QString &pluginFolder)
{
    // The user's window layout and recent files are left alone, and dialogs of the desktop, which
    // cannot be driven, are not used.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);

    // Without a desktop there are no font settings; this is what desktops use.
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QFont font = QApplication::font();
        font.setPointSize(DESKTOP_POINT_SIZE);
        QApplication::setFont(font);
    }

    const QString absolute = QDir::cleanPath(QDir::current().absoluteFilePath(folder));
    Session session(pluginFolder);
    MainWindow &window = session.window();
    TourDriver driver(&window, absolute);
    const Tour tour{driver, absolute, absolute + QLatin1String("/project"),
                    QStringLiteral("power")};
    if (!prepareFolder(tour, sampleFolder)) {
        std::fprintf(stderr, "The sample project %s cannot be copied to %s.\n",
                     qPrintable(sampleFolder), qPrintable(absolute));
        return 1;
    }
    window.resize(PictureSize);
    window.show();
    window.open(tour.project + QLatin1String("/sample.fpgaproj"));

    QString failure;
    const std::unique_ptr<QThread> script(
        QThread::create([&tour, &failure] { failure = runSteps(tour); }));
    QObject::connect(script.get(), &QThread::finished, qApp, [] { QCoreApplication::exit(); });
    script->start();
    QApplication::exec();
    script->wait();

    if (!failure.isEmpty()) {
        std::fprintf(stderr, "The tour failed at \"%s\"\n", qPrintable(failure));
        // Dialogs that stand open would ask for an answer: there is nobody to give it.
        std::_Exit(1);
    }
    std::printf("Pictures and %s are in %s\n", qPrintable(QFileInfo(tour.file()).fileName()),
                qPrintable(QDir::toNativeSeparators(absolute)));
    return 0;
}

} // namespace Workbench
