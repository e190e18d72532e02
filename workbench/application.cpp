#include "workbench/application.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>

namespace Workbench {

namespace {

QString inPrefix(const QString &path)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../") + path);
}

} // namespace

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

void prepareApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("workbench"));
    QCoreApplication::setOrganizationName(QStringLiteral("workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(WORKBENCH_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("workbench"));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

QString pluginFolder()
{
    const QDir beside(QCoreApplication::applicationDirPath() + QStringLiteral("/plugins"));
    return beside.exists() ? beside.path() : inPrefix(QStringLiteral("lib/workbench/plugins"));
}

QString sampleFolder()
{
    return inPrefix(QStringLiteral("share/workbench/sample"));
}

} // namespace Workbench
