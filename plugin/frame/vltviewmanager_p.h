#pragma once

#include "dev/devicearg.h"

#include <QList>

#include <memory>

class QAction;
class QString;

namespace NlsData {
class Netlist;
}

namespace VLT {

class VLTView;

namespace Impl {

/// State and internal operations of the view manager.
class VLTViewManagerPrivate
{
public:
    /// Updates the Save action's text, tool tip and state from the current view.
    void updateActions();

    /// A new netlist of the design, or null after the error has been shown. Runs the event loop.
    std::unique_ptr<NlsData::Netlist> readNlsdata();

    /// A new view that has read the file, or null after the error has been shown.
    VLTView *createVLTView(const DEV::DeviceArg &device, const QString &path,
                           std::unique_ptr<NlsData::Netlist> netlist);

    /// Lists the view and passes it to the environment, which then owns it.
    void placeVLTView(VLTView *view);

    /// The open view of the file with this absolute path, or null.
    VLTView *findView(const QString &absolutePath) const;

    QAction *saveAction = nullptr;  ///< child of the manager; null until initialize()
    VLTView *currentView = nullptr; ///< the last active analysis view, not owned
    QList<VLTView *> views;         ///< in order of opening, not owned
    bool currentViewActive = false; ///< whether the environment's active view is `currentView`
};

} // namespace Impl
} // namespace VLT
