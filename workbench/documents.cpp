#include "workbench/documents.h"

#include "workbench/opencause.h"
#include "workbench/textview.h"

#include "host/core/ifileopener.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "host/extsys/pluginmanager.h"
#include "host/nlsdata/netlistsummary.h"
#include "host/te/deviceselection.h"
#include "host/utils/dialogs.h"
#include "host/utils/documentpath.h"

#include "core/idecore.h"
#include "core/viewmanager.h"
#include "dev/devicedb.h"
#include "te/constants.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>

#include <memory>

namespace Workbench {

namespace {

const QLatin1String ProjectSuffix("fpgaproj");
constexpr int ASK_AGAIN_MILLISECONDS = 200;

bool isProject(const QString &path)
{
    return QFileInfo(path).suffix().compare(ProjectSuffix, Qt::CaseInsensitive) == 0;
}

bool isNetlistOfProject(const QString &path)
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    return project &&
           QFileInfo(project->resultFile(QLatin1String(TE::RES_NETLIST))) == QFileInfo(path);
}

DEV::DeviceArg currentDevice()
{
    const QString id = TE::DeviceSelection::get()->deviceID();
    const DEV::DeviceArg *device = Core::IdeCore::deviceDataBase()->findByID(id);
    return device ? *device : DEV::DeviceArg();
}

} // namespace

Documents::Documents(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    const Core::ViewManager *views = Core::ViewManager::instance();
    connect(views, &Core::ViewManager::viewActiveted, this, &Documents::follow);
    connect(views, &Core::ViewManager::viewClosed, this, &Documents::onViewClosed);
    connect(&m_watcher, &Utils::FileWatcher::changed, this, &Documents::onChanged);
    connect(&m_watcher, &Utils::FileWatcher::removed, this, &Documents::onRemoved);
    connect(&m_watcher, &Utils::FileWatcher::restored, this, &Documents::onRestored);
    m_askLater.setSingleShot(true);
    m_askLater.setInterval(ASK_AGAIN_MILLISECONDS);
    connect(&m_askLater, &QTimer::timeout, this, &Documents::askAboutNext);
}

bool Documents::isDocument(const QString &path)
{
    return isProject(path) || Core::IFileOpener::forFile(path) || NlsData::looksLikeNetlist(path);
}

void Documents::open(const QString &path)
{
    if (isProject(path))
        openProject(path);
    else if (Core::IFileOpener::forFile(path))
        openDocument(path);
    else if (NlsData::looksLikeNetlist(path) && !isNetlistOfProject(path))
        emit netlistFound(path);
    else
        openText(path);
}

bool Documents::openProject(const QString &path)
{
    if (!closeAll())
        return false;
    QString error;
    if (!Core::ProjectSession::get()->open(path, &error)) {
        fail(QMessageBox::Critical, error);
        return false;
    }
    emit opened(path);
    return true;
}

bool Documents::closeProject()
{
    if (!closeAll())
        return false;
    Core::ProjectSession::get()->close();
    return true;
}

void Documents::openDocument(const QString &path)
{
    const QPointer<Documents> self(this);
    if (!Core::ProjectFile::current())
        openProjectBeside(path);
    if (!self)
        return;
    const QString absolute = Utils::documentPath(path);
    Core::IView *view = Core::IFileOpener::forFile(path)->open(currentDevice(), absolute);
    if (!self)
        return;
    if (view) {
        follow(view);
        emit opened(absolute);
    } else if (!Core::ProjectFile::current()) {
        emit failed(tr("%1 has not been opened: a configuration takes its device and netlist from "
                       "a project, and no project is open.")
                        .arg(QDir::toNativeSeparators(path)));
    } else if (currentDevice().id.isEmpty()) {
        emit failed(tr("%1 has not been opened: the project has no device that the catalogue "
                       "lists. Choose one.")
                        .arg(QDir::toNativeSeparators(path)));
    } else {
        tellCause(path, tr("%1 has not been opened"));
    }
}

/// Reports the cause in the messages; the opener has already shown a box.
void Documents::tellCause(const QString &path, const QString &what)
{
    const QString cause = causeOfRefusal(path);
    const QString text = what.arg(QDir::toNativeSeparators(path));
    emit failed(cause.isEmpty() ? text + QLatin1Char('.') : tr("%1: %2").arg(text, cause));
}

// A configuration needs its project: if there is only one in its folder, it is that one.
void Documents::openProjectBeside(const QString &path)
{
    const QFileInfoList projects = QFileInfo(path).absoluteDir().entryInfoList(
        {QStringLiteral("*.") + ProjectSuffix}, QDir::Files);
    if (projects.size() == 1)
        openProject(projects.constFirst().filePath());
}

void Documents::openPlace(const QString &path, int line)
{
    if (TextView *text = openText(path))
        text->showLine(line);
}

/// Null if the file cannot be read, which has been reported.
TextView *Documents::openText(const QString &path)
{
    const QString absolute = Utils::documentPath(path);
    const QList<Core::IView *> views = Core::ViewArea::get()->views();
    for (Core::IView *view : views) {
        auto *text = qobject_cast<TextView *>(view);
        if (text && text->path() == absolute) {
            Core::ViewManager::instance()->showView(view);
            return text;
        }
    }
    auto view = std::make_unique<TextView>(absolute);
    QString error;
    if (!view->load(&error)) {
        fail(QMessageBox::Warning, error);
        return nullptr;
    }
    Core::ViewManager::instance()->showView(view.get());
    return view.release();
}

// Callers return afterwards: the window, and this object with it, may be destroyed meanwhile.
void Documents::fail(QMessageBox::Icon icon, const QString &text)
{
    emit failed(text);
    const bool critical = icon == QMessageBox::Critical;
    Utils::showMessage(m_window, icon, critical ? tr("Error") : tr("Warning"), text);
}

bool Documents::closeAll()
{
    return Core::ViewArea::get()->closeAllViews();
}

void Documents::follow(Core::IView *view)
{
    if (!view || m_followed.contains(view))
        return;
    const auto openers = ExtSys::PluginManager::instance()->objects<Core::IFileOpener>();
    for (Core::IFileOpener *opener : openers) {
        const QString path = opener->filePath(view);
        if (path.isEmpty())
            continue;
        m_followed.insert(view, path);
        m_watcher.watch(path);
        // A document that has just become clean has been written or read, so its file was not
        // changed by another program, unless an unchanged file was only restored.
        connect(view, &Core::IView::shortTitleChanged, this, [this, opener, path] {
            if (!opener->isModified(path))
                m_watcher.accept(path);
        });
        return;
    }
}

void Documents::onViewClosed(Core::IView *view)
{
    const QString path = m_followed.take(view);
    if (path.isEmpty())
        return;
    m_watcher.forget(path);
    dropQuestion(path);
}

void Documents::onChanged(const QString &path)
{
    if (!m_changed.contains(path))
        m_changed.append(path);
    // Not from within the watcher's signal: the question may destroy it with the window.
    QTimer::singleShot(0, this, &Documents::askAboutNext);
}

void Documents::onRemoved(const QString &path)
{
    dropQuestion(path);
    if (Core::IFileOpener *opener = Core::IFileOpener::forFile(path))
        opener->setFileMissing(path, true);
    emit failed(tr("%1 has been removed or renamed by another program. It stays open here as the "
                   "only copy; save it to write the file again.")
                    .arg(QDir::toNativeSeparators(path)));
}

void Documents::onRestored(const QString &path)
{
    dropQuestion(path);
    if (Core::IFileOpener *opener = Core::IFileOpener::forFile(path))
        opener->setFileMissing(path, false);
    emit message(tr("%1 exists again, unchanged.").arg(QDir::toNativeSeparators(path)));
}

// The question no longer applies.
void Documents::dropQuestion(const QString &path)
{
    m_changed.removeAll(path);
    if (m_question && m_asked == path)
        m_question->reject();
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
    const QPointer<Documents> self(this);
    if (viewOf(path) && askToReload(path) && self && viewOf(path))
        reload(path);
    if (self && !m_changed.isEmpty())
        m_askLater.start();
}

void Documents::reload(const QString &path)
{
    const QPointer<Documents> self(this);
    const Core::IView *former = viewOf(path);
    if (Core::IFileOpener *opener = Core::IFileOpener::forFile(path))
        opener->reload(currentDevice(), path);
    if (self && former && viewOf(path) == former)
        tellCause(path, tr("%1 has not been reloaded; its view stays as it is"));
}

bool Documents::askToReload(const QString &path)
{
    const Core::IFileOpener *opener = Core::IFileOpener::forFile(path);
    const bool modified = opener && opener->isModified(path);
    QString text = tr("%1 has been changed by another program. Reload it?")
                       .arg(QDir::toNativeSeparators(path));
    if (modified) {
        text += QLatin1String("\n\n") +
                tr("It has unsaved changes here. Reloading discards them; otherwise your next save "
                   "overwrites the other program's version.");
    }
    Utils::GuardedDialog box(new QMessageBox(QMessageBox::Question, tr("File Changed"), text,
                                             QMessageBox::NoButton, m_window));
    box->setTextFormat(Qt::PlainText);
    const QPushButton *again = box->addButton(
        modified ? tr("&Discard Changes and Reload") : tr("&Reload"), QMessageBox::AcceptRole);
    QPushButton *keep = box->addButton(tr("&Keep"), QMessageBox::RejectRole);
    box->setDefaultButton(keep);
    box->setEscapeButton(keep);
    m_asked = path;
    m_question = box.get();
    box.exec();
    return box.get() && box->clickedButton() == again;
}

} // namespace Workbench
