#include "workbench/mainwindow.h"

#include "workbench/checks/checks.h"
#include "workbench/coverage/coveragetool.h"
#include "workbench/devicedialog.h"
#include "workbench/documents.h"
#include "workbench/editmenu.h"
#include "workbench/panes/messagespane.h"
#include "workbench/projectnotices.h"
#include "workbench/projects/lastproject.h"
#include "workbench/projects/netlistopener.h"
#include "workbench/projects/newfiles.h"
#include "workbench/projects/projectcommands.h"
#include "workbench/projecttree.h"
#include "workbench/synthesis.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "host/dev/devicecatalogue.h"
#include "host/extsys/pluginmanager.h"
#include "host/nlsdata/celllibrary.h"
#include "host/te/deviceselection.h"
#include "host/te/flowcontrol.h"
#include "host/utils/dialogs.h"

#include "core/iview.h"
#include "core/viewmanager.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QTabWidget>
#include <QUrl>

namespace Workbench {

namespace {

const QString GEOMETRY_KEY = QStringLiteral("window/geometry");
const QString STATE_KEY = QStringLiteral("window/state");

// File dialogs start in the folder of the project.
QString workingFolder()
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    return project ? project->folder() : QString();
}

QStringList localFiles(const QMimeData *data)
{
    QStringList result;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile() && Documents::isDocument(url.toLocalFile()))
            result.append(url.toLocalFile());
    }
    return result;
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_views(new QTabWidget)
    , m_tree(new ProjectTree)
    , m_messages(new MessagesPane)
    , m_documents(new Documents(this))
    , m_projects(new ProjectCommands(m_documents, this))
    , m_newFiles(new NewFiles(m_documents, m_projects, this))
    , m_synthesis(new Synthesis(this))
    , m_edit(new EditMenu(this))
    , m_checks(new Checks(this))
    , m_coverage(new CoverageTool(m_checks->service(), this))
{
    setObjectName(QStringLiteral("workbench"));
    setAcceptDrops(true);
    createDocks();
    createFileMenu();
    createOtherMenus();
    createStatusBar();
    createCenter();
    Core::ViewArea::get()->setArea(m_views);
    Core::ViewArea::get()->setDialogParent(this);
    connectParts();
    restoreLayout();
    updateTitle();
    updateActions();
}

MainWindow::~MainWindow() = default;

void MainWindow::connectParts()
{
    new ProjectNotices(m_messages, this);
    connect(m_tree, &ProjectTree::fileActivated, m_documents, &Documents::open);
    connect(m_tree, &ProjectTree::deviceActivated, this, &MainWindow::chooseDevice);
    connect(m_documents, &Documents::opened, &m_recent, &RecentFiles::add);
    connect(m_documents, &Documents::message, m_messages, &MessagesPane::note);
    connect(m_documents, &Documents::failed, m_messages, &MessagesPane::fail);
    connect(m_projects, &ProjectCommands::message, m_messages, &MessagesPane::note);
    connect(m_newFiles, &NewFiles::added, m_tree, &ProjectTree::select);
    connect(m_newFiles, &NewFiles::message, m_messages, &MessagesPane::note);
    auto *netlists = new NetlistOpener(m_documents, m_projects, this);
    connect(m_documents, &Documents::netlistFound, netlists, &NetlistOpener::open);
    connect(netlists, &NetlistOpener::message, m_messages, &MessagesPane::note);
    connect(m_synthesis, &Synthesis::output, m_messages, &MessagesPane::output);
    connect(m_synthesis, &Synthesis::message, m_messages, &MessagesPane::note);
    connect(m_synthesis, &Synthesis::failed, m_messages, &MessagesPane::fail);
    connect(m_checks, &Checks::reloadWanted, m_documents, &Documents::reload);
    connect(m_checks, &Checks::message, m_messages, &MessagesPane::note);
    connect(m_checks, &Checks::failed, m_messages, &MessagesPane::fail);
    connect(m_messages, &MessagesPane::placeActivated, m_documents, &Documents::openPlace);
    connect(&m_recent, &RecentFiles::chosen, this, &MainWindow::open);

    connect(
        Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this, [this] {
            if (Core::ProjectFile *project = Core::ProjectFile::current()) {
                connect(project, &Core::ProjectFile::changed, this, &MainWindow::updateActions);
                connect(project, &Core::ProjectFile::saveFailed, m_messages, &MessagesPane::fail);
            }
            updateTitle();
            updateActions();
        });
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewActiveted, this,
            &MainWindow::updateActions);
}

void MainWindow::takeUpPlugins()
{
    const auto *plugins = ExtSys::PluginManager::instance();
    m_newFiles->fill(m_newMenu, m_projects->newAction());

    const auto failures = plugins->failures();
    for (const ExtSys::PluginManager::Failure &failure : failures)
        m_messages->fail(tr("Plug-in %1: %2").arg(failure.fileName, failure.reason));
    if (plugins->pluginNames().isEmpty())
        m_messages->fail(tr("No plug-in is loaded: configurations cannot be opened."));
    const QString catalogueError = DEV::DeviceCatalogue::get()->userFileError();
    if (!catalogueError.isEmpty())
        m_messages->fail(catalogueError);
    const QStringList libraryProblems = NlsData::CellLibrary::userProblems();
    for (const QString &problem : libraryProblems)
        m_messages->fail(problem);
}

void MainWindow::open(const QString &path)
{
    if (!QFileInfo::exists(path))
        m_recent.remove(path);
    m_documents->open(path);
}

void MainWindow::openLastProject()
{
    const QString path = m_projects->lastProject()->path();
    if (!path.isEmpty())
        open(path);
}

// Opening asks questions, and the window may be closed meanwhile.
void MainWindow::openAll(const QStringList &paths)
{
    const QPointer<MainWindow> self(this);
    for (const QString &path : paths) {
        if (self)
            open(path);
    }
}

void MainWindow::chooseFile()
{
    Utils::GuardedDialog dialog(
        new QFileDialog(this, tr("Open"), workingFolder(),
                        tr("Projects, configurations and netlists (*.fpgaproj *.vlr *.json);;"
                           "All files (*)")));
    dialog->setFileMode(QFileDialog::ExistingFiles);
    if (dialog.exec() == QDialog::Accepted)
        openAll(dialog->selectedFiles());
}

void MainWindow::closeActiveView()
{
    if (Core::IView *view = Core::ViewArea::get()->activeView())
        Core::ViewManager::instance()->closeView(view);
}

void MainWindow::chooseDevice()
{
    Utils::GuardedDialog dialog(new DeviceDialog(TE::DeviceSelection::get()->deviceID(), this));
    if (dialog.exec() != QDialog::Accepted)
        return;
    TE::DeviceSelection::get()->setDevice(dialog->deviceId());
    if (!dialog.get()) // messages of views about the change may have run the event loop
        return;
    m_messages->note(tr("Device: %1").arg(dialog->deviceId()));
    updateActions();
}

void MainWindow::about()
{
    Utils::GuardedDialog box(new QMessageBox(
        QMessageBox::NoIcon, tr("About Workbench"),
        tr("<h3>Workbench %1</h3><p>Opens synthesized designs and edits their power "
           "analysis configurations.</p><p>Plug-ins: %2</p>")
            .arg(QCoreApplication::applicationVersion(), ExtSys::PluginManager::instance()
                                                             ->pluginNames()
                                                             .join(QLatin1String(", "))
                                                             .toHtmlEscaped()),
        QMessageBox::Ok, this));
    box.exec();
}

void MainWindow::updateTitle()
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    setWindowTitle(project ? tr("%1 \u2013 Workbench").arg(project->name()) : tr("Workbench"));
}

void MainWindow::updateActions()
{
    m_close->setEnabled(Core::ViewArea::get()->activeView());
    const QString device = TE::DeviceSelection::get()->deviceID();
    m_device->setText(device.isEmpty() ? tr("No device") : device);
}

bool MainWindow::stopRunningSynthesis()
{
    auto *flow = TE::FlowControl::get();
    if (!flow->isRunning())
        return true;
    const auto answer = Utils::showMessage(
        this, QMessageBox::Question, tr("Quit"), tr("Synthesis is running. Stop it and quit?"),
        QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer != QMessageBox::Yes)
        return false;
    flow->stop();
    return true;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    // The views first: if one stays open, so does the window, and the run continues.
    const QPointer<MainWindow> self(this);
    if (!m_documents->closeAll() || !self || !stopRunningSynthesis() || !self) {
        event->ignore();
        return;
    }
    QSettings settings;
    settings.setValue(GEOMETRY_KEY, saveGeometry());
    settings.setValue(STATE_KEY, saveState());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    const QStringList paths = localFiles(event->mimeData());
    // The source of the drag waits for the drop to end; opening may ask questions.
    QMetaObject::invokeMethod(
        this, [this, paths] { openAll(paths); }, Qt::QueuedConnection);
}

void MainWindow::restoreLayout()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(GEOMETRY_KEY).toByteArray())) {
        // In characters, too, to fit the font; at most the screen.
        const QSize wanted(fontMetrics().averageCharWidth() * 145, fontMetrics().height() * 46);
        resize(wanted.expandedTo({1400, 900}).boundedTo(screen()->availableSize() * 19 / 20));
    }
    restoreState(settings.value(STATE_KEY).toByteArray());
}

} // namespace Workbench
