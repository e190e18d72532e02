#include "utils/fileutils.h"

#include "host/core/projectfile.h"
#include "host/utils/dialogs.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QUrl>

namespace Utils {

namespace {

QString folderKey(const QString &caption)
{
    // Slashes would create groups.
    return QLatin1String("Folders/") + QString::fromLatin1(QUrl::toPercentEncoding(caption));
}

/// The folder last used with `caption`; the project's if there is none or it no longer exists.
QString lastFolder(const QString &caption)
{
    const QString folder = QSettings().value(folderKey(caption)).toString();
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        return folder;
    const auto *project = Core::ProjectFile::current();
    return project ? project->folder() : QString();
}

} // namespace

QString FileUtils::getOpenFileName(QWidget *parent, const QString &caption,
                                   const QString &directory, const QString &filter,
                                   QString *selectedFilter, QFileDialog::Options options)
{
    const QFileInfo start(directory.isEmpty() ? lastFolder(caption) : directory);
    GuardedDialog dialog(new QFileDialog(parent, caption, QString(), filter));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setOptions(options);
    if (start.isFile()) {
        dialog->setDirectory(start.absolutePath());
        dialog->selectFile(start.fileName());
    } else if (start.isDir()) {
        dialog->setDirectory(start.absoluteFilePath());
    }
    if (selectedFilter && !selectedFilter->isEmpty())
        dialog->selectNameFilter(*selectedFilter);
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QString file = dialog->selectedFiles().value(0);
    if (selectedFilter)
        *selectedFilter = dialog->selectedNameFilter();
    QSettings().setValue(folderKey(caption), QFileInfo(file).absolutePath());
    return file;
}

} // namespace Utils
