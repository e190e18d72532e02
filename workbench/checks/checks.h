#pragma once

#include "check/finding.h"
#include "workbench/checks/reviewdialog.h"

#include <QObject>

class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;
class QToolButton;

namespace Workbench {

class CheckService;

/// The window's checks: the service that runs them, the pane that lists what they find, and the
/// counts in the pane's title and in the status bar.
class Checks : public QObject
{
    Q_OBJECT

public:
    /// `window` places dock, menu and status, and becomes their parent.
    explicit Checks(QMainWindow *window);

    QDockWidget *dock() const { return m_dock; }
    CheckService *service() const { return m_service; }
    QMenu *menu() const { return m_menu; }

    /// Shows the counts; a click shows the pane.
    QToolButton *status() const { return m_status; }

signals:
    /// The file of the open configuration has been changed and has to be reloaded.
    void reloadWanted(const QString &path);
    void message(const QString &text);
    void failed(const QString &text);

private:
    void createMenu();
    void update();
    void updateRecording();
    void showPane();
    void review(ReviewDialog::Subject subject);
    bool saveFirst(const QString &path, const QString &title, const QString &question);
    void goTo(const Check::Finding &finding, int occurrence);

    QMainWindow *const m_window;
    CheckService *const m_service;
    QDockWidget *const m_dock;
    QMenu *const m_menu;
    QToolButton *const m_status;
    QAction *const m_review;
    QAction *m_recording = nullptr;
};

} // namespace Workbench
