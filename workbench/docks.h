#pragma once

#include <QObject>

class QDockWidget;
class QMainWindow;
class QMenu;

namespace Workbench {

/// The docks around the views: one on the left, in full height, and panes in tabs below, which are
/// low until one of them is shown.
class Docks : public QObject
{
    Q_OBJECT

public:
    explicit Docks(QMainWindow *window);

    /// Wraps `content`; `name` identifies the dock in the saved layout.
    QDockWidget *addSide(const QString &title, const QString &name, QWidget *content);
    QDockWidget *addPane(const QString &title, const QString &name, QWidget *content);
    void addPane(QDockWidget *dock);

    /// Puts the first pane in front and gives the docks their first sizes, once all are there: the
    /// others would keep the height that they have without the rest.
    void arrange();

    /// Shows a pane in front, high enough for a list.
    void bringForward(QDockWidget *dock);

    /// The menu that shows and hides the docks.
    QMenu *menu() const { return m_menu; }

private:
    QDockWidget *wrap(const QString &title, const QString &name, QWidget *content);
    void growWhenShown(QDockWidget *dock);
    void growLater(QDockWidget *dock);

    QMainWindow *const m_window;
    QMenu *m_menu;
    QDockWidget *m_side = nullptr;
    QDockWidget *m_firstPane = nullptr;
};

} // namespace Workbench
