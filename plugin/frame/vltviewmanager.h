#pragma once

#include "config/vltexport.h"
#include "dev/devicearg.h"

#include <QList>
#include <QObject>

namespace Core {
class IView;
}

namespace VLT {

class VLTView;

/// Context in which the environment's Save command belongs to the analysis views.
constexpr char VLTINS_CONTEXT[] = "VLT.VLTViewManager.Context";

/// Opens configuration files as views, follows which view is active and routes Save to it.
///
/// The one manager exists from the loading of the library, possibly before QApplication, until
/// deinit(); nothing of it may be used after that. Its static functions are the entry points of
/// the plug-in for other libraries.
class VLTViewManager : public QObject
{
    Q_OBJECT

public:
    VLTViewManager();
    ~VLTViewManager() override;

    static VLTViewManager *instance();

    /// Registers the Save action and connects to the environment's view signals. Called once.
    void initialize();

    /// Deletes the manager. Open views stay with the environment.
    void deinit();

    /// Opens the file at `path` on `device`, or shows its view when it is already open. What goes
    /// wrong is told in a message box. It runs the event loop while the netlist is read.
    VLT_EXPORT static void openView(DEV::DeviceArg device, const QString &path);

    /// Reads the file at `path` anew and shows it, on `device`, in place of its open view, whose
    /// changes are dropped. The open view stays as it is when the file cannot be opened, which is
    /// told as openView() does. It runs the event loop while the netlist is read.
    VLT_EXPORT static void reloadView(DEV::DeviceArg device, const QString &path);

    /// Asks the environment to close the view of the file at `path`; nothing when none is open.
    VLT_EXPORT static void closeView(const QString &path);

    /// The open views in the order of opening, not owned.
    VLT_EXPORT static QList<VLTView *> vltViews();

private slots:
    void onCurrentViewChanged(Core::IView *view);
    void onVLTViewClosed(Core::IView *view);
    void onVLTViewModified(bool modified);
    void onActSave();
};

} // namespace VLT
