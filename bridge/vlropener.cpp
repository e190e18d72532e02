#include "vlropener.h"

#include "document/vltview.h"
#include "frame/vltviewmanager.h"

#include "host/utils/documentpath.h"

#include "core/viewmanager.h"

using VLT::VLTView;
using VLT::VLTViewManager;

QStringList VlrOpener::suffixes() const
{
    return {QStringLiteral("vlr")};
}

Core::IView *VlrOpener::open(const DEV::DeviceArg &device, const QString &path)
{
    VLTViewManager::openView(device, path);
    return find(path);
}

void VlrOpener::reload(const DEV::DeviceArg &device, const QString &path)
{
    VLTViewManager::reloadView(device, path);
}

void VlrOpener::close(const QString &path)
{
    VLTViewManager::closeView(path);
}

Core::IView *VlrOpener::view(const QString &path) const
{
    return find(path);
}

QString VlrOpener::filePath(const Core::IView *view) const
{
    const QList<VLTView *> views = VLTViewManager::vltViews();
    for (const VLTView *candidate : views) {
        if (candidate == view)
            return Utils::documentPath(candidate->file());
    }
    return QString();
}

bool VlrOpener::isModified(const QString &path) const
{
    const VLTView *view = find(path);
    return view && view->isModified();
}

void VlrOpener::setFileMissing(const QString &path, bool missing)
{
    if (VLTView *view = find(path))
        view->setFileMissing(missing);
}

bool VlrOpener::showRecord(const QString &path, const QString &section, const QString &name,
                           int occurrence)
{
    VLTView *view = find(path);
    if (!view)
        return false;
    Core::ViewManager::instance()->showView(view);
    return view->showRecord(section, name, occurrence);
}

int VlrOpener::addNetRates(const QString &path, const QStringList &nets)
{
    VLTView *view = find(path);
    if (!view)
        return -1;
    Core::ViewManager::instance()->showView(view);
    return view->addNetRates(nets);
}

bool VlrOpener::save(const QString &path)
{
    VLTView *view = find(path);
    return view && view->save();
}

// Paths are compared as the plug-in compares them.
VLTView *VlrOpener::find(const QString &path)
{
    const QString absolute = Utils::documentPath(path);
    const QList<VLTView *> views = VLTViewManager::vltViews();
    for (VLTView *view : views) {
        if (Utils::documentPath(view->file()) == absolute)
            return view;
    }
    return nullptr;
}
