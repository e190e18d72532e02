#include "workbench/projects/sampleproject.h"

#include "workbench/application.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QStandardPaths>

namespace Workbench {

namespace {

const QLatin1String ProjectName("sample.fpgaproj");

bool copyFile(const QString &from, const QString &to)
{
    if (!QDir().mkpath(QFileInfo(to).path()) || !QFile::copy(from, to))
        return false;
    QFile copy(to);
    return copy.setPermissions(copy.permissions() | QFile::WriteOwner);
}

/// Copies the project file last: it marks the copy as complete.
bool copyFolder(const QDir &from, const QDir &to)
{
    QDirIterator it(from.path(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString name = from.relativeFilePath(it.next());
        if (name == ProjectName || QFile::exists(to.filePath(name)))
            continue;
        if (!copyFile(from.filePath(name), to.filePath(name)))
            return false;
    }
    return copyFile(from.filePath(ProjectName), to.filePath(ProjectName));
}

} // namespace

QString sampleProject(QString *error)
{
    const QDir installed(sampleFolder());
    if (!installed.exists(ProjectName)) {
        *error = QCoreApplication::translate("SampleProject", "The sample is not installed.");
        return QString();
    }
    if (QFileInfo(installed.path()).isWritable())
        return installed.filePath(ProjectName);
    return ownSample(installed,
                     QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                          QLatin1String("/sample")),
                     error);
}

QString ownSample(const QDir &installed, const QDir &own, QString *error)
{
    if (own.exists(ProjectName) || copyFolder(installed, own))
        return own.filePath(ProjectName);
    *error = QCoreApplication::translate("SampleProject", "The sample cannot be copied to %1.")
                 .arg(QDir::toNativeSeparators(own.path()));
    return QString();
}

} // namespace Workbench
