#include "vlropener.h"

#include "document/vltview.h"
#include "frame/vltviewmanager.h"

#include <QFileInfo>

using VLT::VLTView;
using VLT::VLTViewManager;

QStringList VlrOpener::suffixes() const
{
    return {QStringLiteral("vlr")};
}

void VlrOpener::open(const DEV::DeviceArg &device, const QString &path)
{
    VLTViewManager::openView(device, path);
}

void VlrOpener::close(const QString &path)
{
    VLTViewManager::closeView(path);
}

Core::IView *VlrOpener::view(const QString &path) const
{
    return find(path);
}

QStringList VlrOpener::openFiles() const
{
    QStringList result;
    const QList<VLTView *> views = VLTViewManager::vltViews();
    for (const VLTView *view : views)
        result.append(QFileInfo(view->file()).absoluteFilePath());
    return result;
}

bool VlrOpener::isModified(const QString &path) const
{
    const VLTView *view = find(path);
    return view && view->isModified();
}

void VlrOpener::discardChanges(const QString &path)
{
    VLTView *view = find(path);
    if (!view)
        return;
    view->abandonEdits();
    view->setModified(false);
}

// Paths are compared as the plug-in compares them.
VLTView *VlrOpener::find(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    const QList<VLTView *> views = VLTViewManager::vltViews();
    for (VLTView *view : views) {
        if (QFileInfo(view->file()).absoluteFilePath() == absolute)
            return view;
    }
    return nullptr;
}
