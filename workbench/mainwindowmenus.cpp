// The parts of the window around its views: docks, menus and status bar.

#include "workbench/mainwindow.h"

#include "workbench/checks/checks.h"
#include "workbench/coverage/coveragetool.h"
#include "workbench/documents.h"
#include "workbench/editcatalogue.h"
#include "workbench/editmenu.h"
#include "workbench/panes/messagespane.h"
#include "workbench/projects/lastproject.h"
#include "workbench/projects/newfiles.h"
#include "workbench/projects/projectcommands.h"
#include "workbench/projecttree.h"
#include "workbench/startpage.h"
#include "workbench/synthesis.h"
#include "workbench/tablestatus.h"

#include "host/core/commandregistry.h"
#include "host/utils/findbar.h"

#include "core/constants.h"

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace Workbench {

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
    auto *project = new QDockWidget(tr("Project"), this);
    project->setObjectName(QStringLiteral("projectDock"));
    project->setWidget(m_tree);
    addDockWidget(Qt::LeftDockWidgetArea, project);

    auto *messages = new QDockWidget(tr("Messages"), this);
    messages->setObjectName(QStringLiteral("messagesDock"));
    messages->setWidget(m_messages);
    addDockWidget(Qt::BottomDockWidgetArea, messages);

    for (QDockWidget *dock : {m_checks->dock(), m_coverage->dock()}) {
        addDockWidget(Qt::BottomDockWidgetArea, dock);
        tabifyDockWidget(messages, dock);
        growWhenShown(dock);
    }
    messages->raise();
    // The cause is above the message, in the output of the tools.
    connect(m_synthesis, &Synthesis::failed, messages, [this, messages] {
        messages->show();
        messages->raise();
        growLater(messages);
    });

    // The tree takes the full height.
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    resizeDocks({project}, {fontMetrics().averageCharWidth() * 34}, Qt::Horizontal);
    resizeDocks({messages}, {fontMetrics().height() * 4}, Qt::Vertical);

    m_viewMenu = new QMenu(tr("&View"), this);
    m_viewMenu->addAction(project->toggleViewAction());
    m_viewMenu->addAction(messages->toggleViewAction());
    m_viewMenu->addAction(m_checks->dock()->toggleViewAction());
    m_viewMenu->addAction(m_coverage->dock()->toggleViewAction());
}

/// Initially the panes are low, to leave room for the views: too low for a list.
void MainWindow::growWhenShown(QDockWidget *dock)
{
    const auto leaveRoom = [dock, line = fontMetrics().height()] {
        if (dock->widget()) // it may be created later
            dock->widget()->setMinimumHeight(line);
    };
    leaveRoom();
    connect(dock, &QDockWidget::visibilityChanged, this, [this, dock, leaveRoom](bool visible) {
        if (!visible)
            return;
        leaveRoom();
        growLater(dock);
    });
}

/// Once the layout knows what is shown.
void MainWindow::growLater(QDockWidget *dock)
{
    QTimer::singleShot(0, this, [this, dock] {
        const int line = fontMetrics().height();
        if (dock->isVisible() && dock->widget() && dock->widget()->height() < 6 * line)
            resizeDocks({dock}, {12 * line}, Qt::Vertical);
    });
}

/// Loads the icons of a menu when it is first opened: the style decodes several pictures for each,
/// which would delay the start.
void MainWindow::setIconsWhenShown(QMenu *menu, const MenuIcons &icons)
{
    connect(menu, &QMenu::aboutToShow, this, [this, icons] {
        for (const auto &[action, icon] : icons) {
            if (action->icon().isNull())
                action->setIcon(style()->standardIcon(icon));
        }
    });
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

    QMenu *device = menuBar()->addMenu(tr("&Device"));
    m_chooseDevice = device->addAction(tr("&Choose device\u2026"), this, &MainWindow::chooseDevice);
    m_chooseDevice->setObjectName(QStringLiteral("chooseDevice"));
    setIconsWhenShown(device, {{m_chooseDevice, QStyle::SP_ComputerIcon}});
    m_chooseDevice->setStatusTip(tr("Choose the project's device from the catalogue"));
    QAction *edit =
        device->addAction(tr("&Edit catalogue\u2026"), this, [this] { editCatalogue(this); });
    edit->setObjectName(QStringLiteral("editCatalogue"));
    edit->setStatusTip(tr("Add devices and cell libraries of your own"));

    m_checks->menu()->addAction(m_coverage->showAction());
    menuBar()->addMenu(m_checks->menu());
    menuBar()->addMenu(m_viewMenu);

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About Workbench"), this, &MainWindow::about);
}

StartPage *MainWindow::createStartPage()
{
    auto *page = new StartPage({m_projects->newAction(), m_open, m_projects->settingsAction(),
                                m_chooseDevice, m_synthesis->runAction()});
    connect(page, &StartPage::failed, m_messages, &MessagesPane::fail);
    connect(page, &StartPage::fileChosen, this, &MainWindow::open);
    connect(page, &StartPage::configurationWanted, m_newFiles, &NewFiles::createConfiguration);
    connect(m_documents, &Documents::opened, page, &StartPage::addRecent);
    return page;
}

void MainWindow::createStatusBar()
{
    m_device = new QLabel;
    m_device->setObjectName(QStringLiteral("deviceLabel"));
    m_device->setTextFormat(Qt::PlainText);
    new TableStatus(statusBar());
    statusBar()->addPermanentWidget(m_synthesis->progress());
    statusBar()->addPermanentWidget(m_checks->status());
    statusBar()->addPermanentWidget(m_device);
    m_synthesis->progress()->hide();
}

} // namespace Workbench
