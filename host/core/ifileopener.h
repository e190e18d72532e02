#pragma once

#include "hostexport.h"

#include <QObject>
#include <QStringList>

namespace DEV {
class DeviceArg;
}

namespace Core {

class IView;

/// Opens files of some kinds as views. Found in the object pool; whoever loads a plug-in of a
/// closed interface publishes one for it.
class HOST_EXPORT IFileOpener : public QObject
{
    Q_OBJECT

public:
    IFileOpener();
    ~IFileOpener() override;

    /// Lower-case file name suffixes without a point.
    virtual QStringList suffixes() const = 0;

    /// Opens the file on `device`, or shows its view again. Failures are told to the user.
    virtual void open(const DEV::DeviceArg &device, const QString &path) = 0;

    /// Closes the file's view as the user would; a modified one may refuse.
    virtual void close(const QString &path) = 0;

    /// The view that shows the file; null when none does.
    virtual Core::IView *view(const QString &path) const = 0;

    /// Absolute paths of the open files, in order of opening.
    virtual QStringList openFiles() const = 0;

    /// Whether the file is open and has changes that are not saved.
    virtual bool isModified(const QString &path) const = 0;

    /// Lets go of the changes, so that close() asks nothing. For replacing a view by what another
    /// program wrote, after the user agreed.
    virtual void discardChanges(const QString &path) = 0;

    /// The opener in the pool for the file name's suffix; null when there is none.
    static IFileOpener *forFile(const QString &path);
};

} // namespace Core
