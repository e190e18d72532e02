#include "workbench/editcatalogue.h"

#include "host/dev/devicecatalogue.h"
#include "host/nlsdata/celllibrary.h"
#include "host/utils/dialogs.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QSaveFile>
#include <QUrl>

namespace Workbench {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("Workbench::EditCatalogue", text);
}

/// Empty, or what went wrong.
QString create(const QString &devices, const QString &cells)
{
    if (!QDir().mkpath(cells)) // beside the file
        return tr("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(cells));
    if (QFileInfo::exists(devices))
        return {};
    QSaveFile file(devices);
    if (file.open(QIODevice::WriteOnly))
        file.write("{\n  \"families\": [\n  ],\n  \"devices\": [\n  ]\n}\n");
    if (file.isOpen() && file.commit())
        return {};
    return tr("%1 cannot be written: %2.")
        .arg(QDir::toNativeSeparators(devices), file.errorString());
}

void open(QWidget *window, const QString &path)
{
    QString error = create(DEV::DeviceCatalogue::userFile(), NlsData::CellLibrary::userFolder());
    if (error.isEmpty() && !QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        error = tr("The desktop has no program that opens %1. Use an editor of your choice.")
                    .arg(QDir::toNativeSeparators(path));
    if (!error.isEmpty())
        Utils::showMessage(window, QMessageBox::Warning, tr("Edit Catalogue"), error);
}

} // namespace

void editCatalogue(QWidget *window)
{
    const QString devices = DEV::DeviceCatalogue::userFile();
    const QString cells = NlsData::CellLibrary::userFolder();
    Utils::GuardedDialog box(new QMessageBox(
        QMessageBox::Information, tr("Edit Catalogue"),
        tr("Your own devices:\n%1\n\nYour own cell libraries:\n%2")
            .arg(QDir::toNativeSeparators(devices), QDir::toNativeSeparators(cells)),
        QMessageBox::Close, window));
    box->setObjectName(QStringLiteral("editCatalogue"));
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setInformativeText(tr("Both add to the built-in ones and are read at startup: restart the "
                               "workbench after a change. Their format is described in "
                               "docs/projects.md."));
    const QPushButton *file = box->addButton(tr("Open &devices"), QMessageBox::ActionRole);
    const QPushButton *folder = box->addButton(tr("Open &cell libraries"), QMessageBox::ActionRole);
    box.exec();
    if (box.get() && box->clickedButton() == file)
        open(window, devices);
    else if (box.get() && box->clickedButton() == folder)
        open(window, cells);
}

} // namespace Workbench
