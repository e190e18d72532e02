#pragma once

#include "workbench/recentfiles.h"

#include <QMainWindow>

class QTabWidget;

namespace Workbench {

class Checks;
class CoverageTool;
class DeviceMenu;
class Docks;
class Documents;
class EditMenu;
class MessagesPane;
class NewFiles;
class ProjectCommands;
class ProjectTree;
class StartPage;
class Synthesis;

/// The program's window: project tree, views in tabs, messages, menus. It sets itself up as the
/// area in which the host shows views.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// Adds the commands that plug-ins have published, and reports plug-ins that cannot be used.
    /// Call once, after the plug-ins are initialized.
    void takeUpPlugins();

    /// Opens a project, a configuration, a netlist or a text file; reports failures to the user.
    void open(const QString &path);

    /// Opens the project of the last session, unless that option is off.
    void openLastProject();

    Documents *documents() const { return m_documents; }
    MessagesPane *messages() const { return m_messages; }
    const RecentFiles &recentFiles() const { return m_recent; }

protected:
    /// Asks about unsaved changes view by view; canceling keeps the window open.
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void createCenter();
    void createDocks();
    void createFileMenu();
    void createOtherMenus();
    void createStatusBar();
    StartPage *createStartPage();
    void restoreLayout();
    void connectParts();

    void openAll(const QStringList &paths);
    void chooseFile();
    void closeActiveView();
    void about();
    void updateTitle();
    void updateActions();
    bool stopRunningSynthesis();

    QTabWidget *m_views;
    ProjectTree *m_tree;
    MessagesPane *m_messages;
    Documents *m_documents;
    ProjectCommands *m_projects;
    NewFiles *m_newFiles;
    Synthesis *m_synthesis;
    EditMenu *m_edit;
    Checks *m_checks;
    CoverageTool *m_coverage;
    DeviceMenu *m_device;
    Docks *m_docks;
    RecentFiles m_recent;
    QMenu *m_newMenu = nullptr;
    QAction *m_open = nullptr;
    QAction *m_close = nullptr;
};

} // namespace Workbench
