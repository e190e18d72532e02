#include "utils/fileutils.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QSettings>
#include <QUrl>

namespace Utils {

namespace {

QString folderKey(const QString &caption)
{
    // Slashes would make groups of it.
    return QLatin1String("Folders/") + QString::fromLatin1(QUrl::toPercentEncoding(caption));
}

} // namespace

QString FileUtils::getOpenFileName(QWidget *parent, const QString &caption,
                                   const QString &directory, const QString &filter,
                                   QString *selectedFilter, QFileDialog::Options options)
{
    QSettings settings;
    const QString start =
        directory.isEmpty() ? settings.value(folderKey(caption)).toString() : directory;
    // On the heap: the parent may go, with its children, while the dialog runs.
    const QPointer<QFileDialog> dialog = new QFileDialog(parent, caption, start, filter);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setOptions(options);
    if (selectedFilter && !selectedFilter->isEmpty())
        dialog->selectNameFilter(*selectedFilter);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return QString();
    QString file;
    if (accepted) {
        file = dialog->selectedFiles().value(0);
        if (selectedFilter)
            *selectedFilter = dialog->selectedNameFilter();
        settings.setValue(folderKey(caption), QFileInfo(file).absolutePath());
    }
    delete dialog;
    return file;
}

} // namespace Utils
