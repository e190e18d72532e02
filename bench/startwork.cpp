#include "measure.h"
#include "suite.h"
#include "works.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace {

/// Runs a program of this build until a widget of class `painted` has been painted.
double start(const QString &program, const QStringList &arguments, const QString &painted)
{
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("firstpaint"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(FIRSTPAINT_DIR));
    environment.insert(QStringLiteral("FIRSTPAINT_CLASS"), painted);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home.path());

    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    return seconds([&] {
        process.start(QDir(QCoreApplication::applicationDirPath()).filePath(program), arguments);
        if (!process.waitForFinished(60000) || process.exitCode() != 0)
            qFatal("%s was never painted", qPrintable(program));
    });
}

} // namespace

void startWork(Suite &suite)
{
    const QDir sample(QStringLiteral(SAMPLE_DIR));
    const QStringList arguments{QStringLiteral("--project"),
                                sample.filePath(QStringLiteral("sample.fpgaproj")),
                                sample.filePath(QStringLiteral("sample.vlr"))};
    const auto empty = [] {
        return start(QStringLiteral("emptywindow"), {}, QStringLiteral("QMainWindow"));
    };
    const auto workbench = [&](const char *painted) {
        return start(QStringLiteral("workbench"), arguments, QLatin1String(painted));
    };
    suite.compare(
        QStringLiteral("workbench, cold start to first paint with the sample"), empty,
        [&] { return workbench("QMainWindow"); }, 2, Suite::MANY);
    suite.compare(
        QStringLiteral("the same until the sample's configuration is painted"), empty,
        [&] { return workbench("VLT::VLTView"); }, 0, Suite::MANY);
}
