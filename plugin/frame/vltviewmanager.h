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

/// Context in which the environment's Save command applies to configuration views.
constexpr char VLTINS_CONTEXT[] = "VLT.VLTViewManager.Context";

/// Opens configuration files as views, follows which view is active and routes Save to it.
///
/// The single manager exists from the loading of the library, possibly before QApplication, until
/// deinit(), and must not be used after that. Its static functions are the plug-in's entry points
/// for other libraries.
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

    /// Opens the file at `path` for `device`, or shows its view if it is already open. Errors are
    /// shown in a message box. Runs the event loop while the netlist is read.
    VLT_EXPORT static void openView(DEV::DeviceArg device, const QString &path);

    /// Reloads the file at `path` for `device` and replaces its open view, whose changes are
    /// discarded. If the file cannot be opened, shows the error as openView() does and keeps the
    /// open view. Runs the event loop while the netlist is read.
    VLT_EXPORT static void reloadView(DEV::DeviceArg device, const QString &path);

    /// Asks the environment to close the view of the file at `path`, if it is open.
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
