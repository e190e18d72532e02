#include "workbench/mainwindow.h"

#include "workbench/checks/checks.h"
#include "workbench/coverage/coveragetool.h"
#include "workbench/devicemenu.h"
#include "workbench/docks.h"
#include "workbench/documents.h"
#include "workbench/editmenu.h"
#include "workbench/menuicons.h"
#include "workbench/panes/messagespane.h"
#include "workbench/projectnotices.h"
#include "workbench/projects/lastproject.h"
#include "workbench/projects/netlistopener.h"
#include "workbench/projects/newfiles.h"
#include "workbench/projects/projectcommands.h"
#include "workbench/projecttree.h"
#include "workbench/startpage.h"
#include "workbench/synthesis.h"
#include "workbench/tablestatus.h"

#include "host/core/commandregistry.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "host/dev/devicecatalogue.h"
#include "host/extsys/pluginmanager.h"
#include "host/nlsdata/celllibrary.h"
#include "host/te/flowcontrol.h"
#include "host/utils/dialogs.h"
#include "host/utils/findbar.h"

#include "core/constants.h"
#include "core/iview.h"
#include "core/viewmanager.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

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
    , m_device(new DeviceMenu(this))
    , m_docks(new Docks(this))
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

void MainWindow::createCenter()
{
    m_views->setObjectName(QStringLiteral("views"));
    m_views->setDocumentMode(true);
    m_views->setTabsClosable(true);
    m_views->setMovable(true);
    auto *center = new QWidget;
    auto *layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createStartPage()->around(m_views));
    layout->addWidget(m_edit->findBar());
    setCentralWidget(center);
}

void MainWindow::createDocks()
{
    m_docks->addSide(tr("Project"), QStringLiteral("projectDock"), m_tree);
    QDockWidget *messages =
        m_docks->addPane(tr("Messages"), QStringLiteral("messagesDock"), m_messages);
    m_docks->addPane(m_checks->dock());
    m_docks->addPane(m_coverage->dock());
    m_docks->arrange();
    // The cause is above the message, in the output of the tools.
    connect(m_synthesis, &Synthesis::failed, messages,
            [this, messages] { m_docks->bringForward(messages); });
}

void MainWindow::createFileMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    m_newMenu = menu->addMenu(tr("&New"));
    m_newMenu->setObjectName(QStringLiteral("newMenu"));
    m_newMenu->addAction(m_projects->newAction());

    m_open = menu->addAction(tr("&Open\u2026"), this, &MainWindow::chooseFile);
    m_open->setObjectName(QStringLiteral("open"));
    m_open->setShortcut(QKeySequence::Open);
    m_open->setStatusTip(tr("Open a project, a configuration or a netlist"));
    m_recent.fill(menu->addMenu(tr("Open &recent")));
    menu->addSeparator();

    Core::CommandRegistry::setDefaultText(QLatin1String(Core::Constants::A_FILE_SAVE), tr("&Save"));
    QAction *save = Core::CommandRegistry::command(QLatin1String(Core::Constants::A_FILE_SAVE));
    save->setShortcut(QKeySequence::Save);
    menu->addAction(save);

    m_close = menu->addAction(tr("&Close"), this, &MainWindow::closeActiveView);
    m_close->setObjectName(QStringLiteral("closeView"));
    m_close->setShortcuts({Qt::CTRL + Qt::Key_W, Qt::CTRL + Qt::Key_F4});
    m_close->setStatusTip(tr("Close the current view"));
    menu->addSeparator();
    menu->addAction(m_projects->settingsAction());
    menu->addAction(m_projects->closeAction());
    menu->addAction(m_projects->lastProject()->option());
    menu->addSeparator();
    QAction *quit = menu->addAction(tr("&Quit"), this, &MainWindow::close);
    quit->setObjectName(QStringLiteral("quit"));
    quit->setShortcut(Qt::CTRL + Qt::Key_Q);
    setIconsWhenShown(menu, {{m_newMenu->menuAction(), QStyle::SP_FileIcon},
                             {m_open, QStyle::SP_DialogOpenButton},
                             {save, QStyle::SP_DialogSaveButton},
                             {m_close, QStyle::SP_DialogCloseButton}});
}

void MainWindow::createOtherMenus()
{
    menuBar()->addMenu(m_edit->menu());
    QMenu *flow = menuBar()->addMenu(tr("F&low"));
    flow->addAction(m_synthesis->runAction());
    flow->addAction(m_synthesis->stopAction());
    setIconsWhenShown(flow, {{m_synthesis->runAction(), QStyle::SP_MediaPlay},
                             {m_synthesis->stopAction(), QStyle::SP_MediaStop}});

    menuBar()->addMenu(m_device->menu());
    m_checks->menu()->addAction(m_coverage->showAction());
    menuBar()->addMenu(m_checks->menu());
    menuBar()->addMenu(m_docks->menu());

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About Workbench"), this, &MainWindow::about);
}

StartPage *MainWindow::createStartPage()
{
    auto *page = new StartPage({m_projects->newAction(), m_open, m_projects->settingsAction(),
                                m_device->chooseAction(), m_synthesis->runAction()});
    connect(page, &StartPage::failed, m_messages, &MessagesPane::fail);
    connect(page, &StartPage::fileChosen, this, &MainWindow::open);
    connect(page, &StartPage::configurationWanted, m_newFiles, &NewFiles::createConfiguration);
    connect(m_documents, &Documents::opened, page, &StartPage::addRecent);
    return page;
}

void MainWindow::createStatusBar()
{
    new TableStatus(statusBar());
    statusBar()->addPermanentWidget(m_synthesis->progress());
    statusBar()->addPermanentWidget(m_checks->status());
    statusBar()->addPermanentWidget(m_device->label());
    m_synthesis->progress()->hide();
}

void MainWindow::connectParts()
{
    new ProjectNotices(m_messages, this);
    connect(m_tree, &ProjectTree::fileActivated, m_documents, &Documents::open);
    connect(m_tree, &ProjectTree::deviceActivated, m_device, &DeviceMenu::choose);
    connect(m_device, &DeviceMenu::message, m_messages, &MessagesPane::note);
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
    m_device->update();
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
