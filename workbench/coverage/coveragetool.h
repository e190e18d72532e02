#pragma once

#include <QObject>

class QAction;
class QDockWidget;
class QMainWindow;

namespace Workbench {

class CheckService;
class CoverageService;

/// The window's coverage: the service that computes it, and the pane that shows it, which is made
/// when it is first seen.
class CoverageTool : public QObject
{
    Q_OBJECT

public:
    /// `checks` is borrowed. The dock is for `window` to place; it is its parent in the end.
    CoverageTool(CheckService *checks, QMainWindow *window);

    QDockWidget *dock() const { return m_dock; }
    /// Shows the pane.
    QAction *showAction() const { return m_show; }

private:
    void createPane();
    void showPane();
    void addRates(const QStringList &nets);

    QMainWindow *const m_window;
    CoverageService *const m_service;
    QDockWidget *const m_dock;
    QAction *const m_show;
};

} // namespace Workbench
