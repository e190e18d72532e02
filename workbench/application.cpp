#include "workbench/application.h"

#include <QCoreApplication>
#include <QDir>

namespace Workbench {

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
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

QString sampleFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/../share/workbench/sample"));
}

} // namespace Workbench
