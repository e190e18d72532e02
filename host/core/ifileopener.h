#pragma once

#include "hostexport.h"

#include <QObject>
#include <QStringList>

namespace DEV {
class DeviceArg;
}

namespace Core {

class IView;

/// Opens files of some kinds as views. Found in the object pool; a bridge publishes one for a
/// plug-in that does not know this interface.
class HOST_EXPORT IFileOpener : public QObject
{
    Q_OBJECT

public:
    IFileOpener();
    ~IFileOpener() override;

    /// Lower-case file name extensions without the point.
    virtual QStringList suffixes() const = 0;

    /// Opens the file for `device`, or shows the view that it has. On failure informs the user and
    /// returns null.
    virtual Core::IView *open(const DEV::DeviceArg &device, const QString &path) = 0;

    /// Reloads an open file in a new view that replaces the present one, whose changes are
    /// discarded. On failure informs the user and keeps the view.
    virtual void reload(const DEV::DeviceArg &device, const QString &path) = 0;

    /// Closes the file's view as the user would; a modified one may refuse.
    virtual void close(const QString &path) = 0;

    /// The view of the file; null if it is not open.
    virtual Core::IView *view(const QString &path) const = 0;

    /// The document path of the file in `view`; empty if the view is of another kind.
    virtual QString filePath(const Core::IView *view) const = 0;

    /// Whether the file is open and has changes that are not saved.
    virtual bool isModified(const QString &path) const = 0;

    /// Another program has removed the file of an open view, which then counts as modified, or has
    /// restored it, so that only edits count again.
    virtual void setFileMissing(const QString &path, bool missing) = 0;

    /// Shows a record of an open file in its view: selected, and scrolled to. It is found by the
    /// element's name, the object's name and its number among the records of that name, from 1.
    /// Without an object's name the page with the element is shown. False when the file is not open
    /// or the view does not list the record any more.
    virtual bool showRecord(const QString &path, const QString &section, const QString &name,
                            int occurrence) = 0;

    /// Adds nets without a rate to the rates of an open file, in its view, as if the user had
    /// picked them there. Returns how many were not listed yet; -1 when the file is not open.
    virtual int addNetRates(const QString &path, const QStringList &nets) = 0;

    /// Saves an open file that is modified. False when it was refused or failed, which the user
    /// has been told; runs the event loop then.
    virtual bool save(const QString &path) = 0;

    /// The opener in the pool for the file name's extension; null if there is none.
    static IFileOpener *forFile(const QString &path);
};

} // namespace Core
