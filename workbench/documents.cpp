#include "workbench/documents.h"

#include "workbench/textview.h"

#include "host/core/ifileopener.h"
#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "host/extsys/pluginmanager.h"
#include "host/te/deviceselection.h"

#include "core/idecore.h"
#include "core/viewmanager.h"
#include "dev/devicedb.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <memory>

namespace Workbench {

namespace {

const QLatin1String ProjectSuffix("fpgaproj");
constexpr int AskAgainMilliseconds = 200;

bool isProject(const QString &path)
{
    return QFileInfo(path).suffix().compare(ProjectSuffix, Qt::CaseInsensitive) == 0;
}

DEV::DeviceArg currentDevice()
{
    const QString id = TE::DeviceSelection::get()->deviceID();
    const DEV::DeviceArg *device = Core::IdeCore::deviceDataBase()->findByID(id);
    return device ? *device : DEV::DeviceArg();
}

// The texts carry file names: they are shown as they are. On the heap, because the window may go
// while the box stands.
void tell(QWidget *window, QMessageBox::Icon icon, const QString &title, const QString &text)
{
    QPointer<QMessageBox> box = new QMessageBox(icon, title, text, QMessageBox::Ok, window);
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box;
}

} // namespace

Documents::Documents(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    const Core::ViewManager *views = Core::ViewManager::instance();
    connect(views, &Core::ViewManager::viewActiveted, this, &Documents::follow);
    connect(views, &Core::ViewManager::viewClosed, this, &Documents::onViewClosed);
    connect(&m_watcher, &DocumentWatcher::removed, this, &Documents::onRemoved);
    connect(&m_watcher, &DocumentWatcher::changed, this, [this](const QString &path) {
        if (!m_changed.contains(path))
            m_changed.append(path);
        askAboutNext();
    });
    m_askLater.setSingleShot(true);
    m_askLater.setInterval(AskAgainMilliseconds);
    connect(&m_askLater, &QTimer::timeout, this, &Documents::askAboutNext);
}

bool Documents::isDocument(const QString &path)
{
    return isProject(path) || Core::IFileOpener::forFile(path);
}

void Documents::open(const QString &path)
{
    if (isProject(path))
        openProject(path);
    else if (Core::IFileOpener::forFile(path))
        openDocument(path);
    else
        openText(path);
}

bool Documents::openProject(const QString &path)
{
    if (!closeAll())
        return false;
    QString error;
    if (!Core::ProjectSession::get()->open(path, &error)) {
        emit failed(error);
        tell(m_window, QMessageBox::Critical, tr("Error"), error);
        return false;
    }
    emit opened(path);
    return true;
}

void Documents::openDocument(const QString &path)
{
    if (!Core::ProjectSession::get()->current() && !openProjectBeside(path)) {
        emit message(tr("No project is open: %1 is opened without a device and a netlist.")
                         .arg(QDir::toNativeSeparators(path)));
    }
    Core::IFileOpener *opener = Core::IFileOpener::forFile(path);
    const QString absolute = QFileInfo(path).absoluteFilePath();
    opener->open(currentDevice(), absolute);
    follow();
    if (opener->view(absolute))
        emit opened(absolute);
}

// A configuration means little without its project. The only one in its folder is meant.
bool Documents::openProjectBeside(const QString &path)
{
    const QFileInfoList projects = QFileInfo(path).absoluteDir().entryInfoList(
        {QStringLiteral("*.") + ProjectSuffix}, QDir::Files);
    return projects.size() == 1 && openProject(projects.constFirst().absoluteFilePath());
}

void Documents::openText(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    const QList<Core::IView *> views = Core::ViewArea::get()->views();
    for (Core::IView *view : views) {
        const auto *text = qobject_cast<TextView *>(view);
        if (text && text->path() == absolute) {
            Core::ViewManager::instance()->showView(view);
            return;
        }
    }
    auto view = std::make_unique<TextView>(absolute);
    QString error;
    if (!view->load(&error)) {
        emit failed(error);
        tell(m_window, QMessageBox::Warning, tr("Warning"), error);
        return;
    }
    Core::ViewManager::instance()->showView(view.release());
}

bool Documents::closeAll()
{
    return Core::ViewArea::get()->closeAllViews();
}

// Takes up the views that have been opened since.
void Documents::follow()
{
    const QList<Core::IView *> views = Core::ViewArea::get()->views();
    const auto openers = ExtSys::PluginManager::instance()->objects<Core::IFileOpener>();
    for (Core::IFileOpener *opener : openers) {
        const QStringList files = opener->openFiles();
        for (const QString &path : files) {
            Core::IView *view = opener->view(path);
            if (!view || m_followed.contains(view) || !views.contains(view))
                continue;
            m_followed.insert(view, path);
            m_watcher.watch(path);
            // A document that has just become clean has been written or read: that is no change by
            // another program.
            connect(view, &Core::IView::shortTitleChanged, this, [this, path] {
                const Core::IFileOpener *opener = Core::IFileOpener::forFile(path);
                if (opener && !opener->isModified(path))
                    m_watcher.accept(path);
            });
        }
    }
}

void Documents::onViewClosed(Core::IView *view)
{
    const QString path = m_followed.take(view);
    if (path.isEmpty())
        return;
    m_watcher.forget(path);
    m_changed.removeAll(path);
}

void Documents::onRemoved(const QString &path)
{
    m_changed.removeAll(path);
    emit failed(tr("%1 has been removed or renamed by another program; it stays open here.")
                    .arg(QDir::toNativeSeparators(path)));
}

Core::IView *Documents::viewOf(const QString &path) const
{
    return m_followed.key(path, nullptr);
}

void Documents::askAboutNext()
{
    if (m_changed.isEmpty())
        return;
    // Not in the middle of another question or dialog.
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) {
        m_askLater.start();
        return;
    }
    const QString path = m_changed.takeFirst();
    if (viewOf(path) && askToReload(path))
        reload(path);
    if (!m_changed.isEmpty())
        m_askLater.start();
}

bool Documents::askToReload(const QString &path)
{
    const Core::IFileOpener *opener = Core::IFileOpener::forFile(path);
    const bool modified = opener && opener->isModified(path);
    QString text = tr("%1 has been changed by another program. Read it again?")
                       .arg(QDir::toNativeSeparators(path));
    if (modified) {
        text +=
            QLatin1String("\n\n") +
            tr("It has changes here that are not saved. Reading it again drops them; keeping it "
               "open leaves the file as the other program wrote it until you save.");
    }
    QPointer<QMessageBox> box = new QMessageBox(QMessageBox::Question, tr("File Changed"), text,
                                                QMessageBox::NoButton, m_window);
    box->setTextFormat(Qt::PlainText);
    const QPushButton *again = box->addButton(
        modified ? tr("&Drop changes and read again") : tr("&Read again"), QMessageBox::AcceptRole);
    QPushButton *keep = box->addButton(tr("&Keep open"), QMessageBox::RejectRole);
    box->setDefaultButton(keep);
    box->setEscapeButton(keep);
    // A view that is closed meanwhile leaves nothing to ask.
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewClosed, box.data(),
            [this, path, box] {
                if (!viewOf(path))
                    box->reject();
            });
    box->exec();
    const bool result = box && box->clickedButton() == again;
    delete box;
    return result;
}

void Documents::reload(const QString &path)
{
    Core::IFileOpener *opener = Core::IFileOpener::forFile(path);
    if (!opener || !opener->view(path))
        return;
    opener->discardChanges(path);
    opener->close(path);
    if (!opener->view(path))
        openDocument(path);
}

} // namespace Workbench
