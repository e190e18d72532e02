#include "frame/vltviewmanager.h"

#include "document/namelookup.h"
#include "document/vltview.h"
#include "frame/vltviewmanager_p.h"
#include "widgets/plainmessage.h"

#include "core/actionmanager.h"
#include "core/constants.h"
#include "core/iview.h"
#include "core/viewmanager.h"
#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "te/constants.h"
#include "te/flowmanager.h"
#include "te/taskengine.h"

#include <QAction>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QPointer>

namespace VLT {

namespace {

// Created with the library, which may be before QApplication: neither constructor may touch
// anything that needs it. deinit() deletes both; they are not reset, since nothing may use them
// afterwards.
VLTViewManager *manager = new VLTViewManager;
Impl::VLTViewManagerPrivate *d = new Impl::VLTViewManagerPrivate;

QString absolutePath(const QString &path)
{
    return QFileInfo(path).absoluteFilePath();
}

void showError(const QString &text)
{
    showMessage(QMessageBox::Critical, Core::ViewManager::instance()->dialogParent(),
                QStringLiteral("Error"), text);
}

// Whether the file exists; if not, informs the user.
bool checkFileExists(const QString &path)
{
    if (QFileInfo(path).isFile())
        return true;
    showMessage(
        QMessageBox::Warning, Core::ViewManager::instance()->dialogParent(),
        QStringLiteral("Warning"),
        QStringLiteral("Can not open %1, file does not exist.").arg(QDir::toNativeSeparators(path)),
        QMessageBox::Ok, QMessageBox::Ok);
    return false;
}

} // namespace

namespace Impl {

void VLTViewManagerPrivate::updateActions()
{
    if (!currentViewActive) {
        saveAction->setEnabled(false);
        return;
    }
    const QString title = currentView->windowTitle();
    saveAction->setText(QStringLiteral("&Save \"%1\"").arg(title));
    saveAction->setToolTip(QStringLiteral("Save \"%1\"").arg(title));
    saveAction->setEnabled(currentView->isModified() || currentView->hasPendingEdits());
}

std::unique_ptr<NlsData::Netlist> VLTViewManagerPrivate::readNlsdata()
{
    const QString path =
        TE::TaskEngine::instance()->flowManager()->resultFile(QString::fromLatin1(TE::RES_NETLIST));
    std::unique_ptr<NlsData::Netlist> netlist(NlsData::readNetlistFileWithDialog(
        Core::ViewManager::instance()->dialogParent(), path, nullptr, false));
    if (!netlist)
        showError(
            QStringLiteral("Netlist file does not exist or some errors are in the netlist file."));
    return netlist;
}

VLTView *VLTViewManagerPrivate::createVLTView(const DEV::DeviceArg &device, const QString &path,
                                              std::unique_ptr<NlsData::Netlist> netlist)
{
    QPointer<VLTView> view = new VLTView(device, netlist.release());
    QString error;
    if (!view->getVoltageInfo())
        error = QStringLiteral("get Voltage Info Fail.");
    else if (!view->readCfgFile(path))
        error = QStringLiteral("Can not open %1:\nInvalid VLR file.")
                    .arg(QDir::toNativeSeparators(path));
    if (error.isEmpty())
        return view;
    showError(error);
    delete view.data();
    return nullptr;
}

void VLTViewManagerPrivate::placeVLTView(VLTView *view)
{
    views.append(view);
    // Connected directly, because the slot uses sender().
    QObject::connect(view, SIGNAL(modificationStatusChanged(bool)), manager,
                     SLOT(onVLTViewModified(bool)));
    QObject::connect(view, &VLTView::pendingEditsChanged, manager, [this, view] {
        if (view == currentView)
            updateActions();
    });
    QObject::connect(view, &VLTView::closeRequested, manager, &VLTViewManager::closeView);
    Core::ViewManager::instance()->registerContext(view, QString::fromLatin1(VLTINS_CONTEXT), true);
    Core::ViewManager::instance()->showView(view);
}

VLTView *VLTViewManagerPrivate::findView(const QString &absolutePath) const
{
    // Empty if no file exists. Links are resolved.
    const QString canonical = QFileInfo(absolutePath).canonicalFilePath();
    for (VLTView *view : views) {
        const QFileInfo file(view->file());
        if (file.absoluteFilePath() == absolutePath ||
            (!canonical.isEmpty() && file.canonicalFilePath() == canonical))
            return view;
    }
    return nullptr;
}

} // namespace Impl

VLTViewManager::VLTViewManager() = default;

VLTViewManager::~VLTViewManager() = default;

VLTViewManager *VLTViewManager::instance()
{
    return manager;
}

void VLTViewManager::initialize()
{
    d->saveAction = new QAction(this);
    Core::ActionManager::registerAction(d->saveAction,
                                        QString::fromLatin1(Core::Constants::A_FILE_SAVE),
                                        QString::fromLatin1(VLTINS_CONTEXT));
    d->saveAction->setEnabled(false);
    connect(d->saveAction, &QAction::triggered, this, &VLTViewManager::onActSave);
    Core::ViewManager *host = Core::ViewManager::instance();
    connect(host, &Core::ViewManager::viewActiveted, this, &VLTViewManager::onCurrentViewChanged);
    connect(host, &Core::ViewManager::viewClosed, this, &VLTViewManager::onVLTViewClosed);
}

void VLTViewManager::deinit()
{
    delete d;
    NameLookup::finish();
    delete this;
}

void VLTViewManager::openView(DEV::DeviceArg device, const QString &path)
{
    if (path.isEmpty() || !checkFileExists(path))
        return;
    const QString file = absolutePath(path);
    if (VLTView *view = d->findView(file)) {
        Core::ViewManager::instance()->showView(view);
        return;
    }
    std::unique_ptr<NlsData::Netlist> netlist = d->readNlsdata();
    if (!netlist)
        return;
    // The progress dialog ran the event loop, in which the same file may have been opened.
    if (VLTView *view = d->findView(file)) {
        Core::ViewManager::instance()->showView(view);
        return;
    }
    VLTView *view = d->createVLTView(device, file, std::move(netlist));
    if (!view)
        return;
    qDebug() << "Create VLTView: " << view;
    d->placeVLTView(view);
}

void VLTViewManager::reloadView(DEV::DeviceArg device, const QString &path)
{
    const QPointer<VLTView> former = d->findView(absolutePath(path));
    if (!former || !checkFileExists(path))
        return;
    std::unique_ptr<NlsData::Netlist> netlist = d->readNlsdata();
    // The event loop has run, here or in messages about the file: the view may have been closed.
    if (!netlist || !d->views.contains(former))
        return;
    std::unique_ptr<VLTView> view(d->createVLTView(device, former->file(), std::move(netlist)));
    if (!view || !d->views.contains(former))
        return;
    const bool modified = former->isModified();
    former->abandonEdits();
    former->setModified(false);
    if (Core::ViewManager::instance()->closeView(former))
        d->placeVLTView(view.release());
    else if (former && modified)
        former->setModified(true); // the host keeps it, and so does it keep what was edited
}

void VLTViewManager::closeView(const QString &path)
{
    if (path.isEmpty())
        return;
    if (VLTView *view = d->findView(absolutePath(path)))
        Core::ViewManager::instance()->closeView(view);
}

QList<VLTView *> VLTViewManager::vltViews()
{
    return d->views;
}

void VLTViewManager::onCurrentViewChanged(Core::IView *view)
{
    auto *analysisView = qobject_cast<VLTView *>(view);
    if (analysisView)
        d->currentView = analysisView;
    d->currentViewActive = analysisView != nullptr;
    d->updateActions();
}

void VLTViewManager::onVLTViewClosed(Core::IView *view)
{
    auto *analysisView = qobject_cast<VLTView *>(view);
    if (!analysisView)
        return;
    d->views.removeAll(analysisView);
    if (analysisView == d->currentView) {
        d->currentViewActive = false;
        d->currentView = nullptr;
    }
    d->updateActions();
}

void VLTViewManager::onVLTViewModified(bool)
{
    auto *view = qobject_cast<VLTView *>(sender());
    if (view && view == d->currentView)
        d->updateActions();
}

void VLTViewManager::onActSave()
{
    if (!d->currentView)
        return;
    d->currentView->commitEdits();
    if (d->currentView->isModified())
        d->currentView->save();
}

} // namespace VLT
