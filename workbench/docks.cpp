#include "workbench/docks.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QTimer>

namespace Workbench {

Docks::Docks(QMainWindow *window)
    : QObject(window)
    , m_window(window)
    , m_menu(new QMenu(tr("&View"), window))
{
}

QDockWidget *Docks::wrap(const QString &title, const QString &name, QWidget *content)
{
    auto *dock = new QDockWidget(title, m_window);
    dock->setObjectName(name);
    dock->setWidget(content);
    return dock;
}

QDockWidget *Docks::addSide(const QString &title, const QString &name, QWidget *content)
{
    m_side = wrap(title, name, content);
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_side);
    m_menu->addAction(m_side->toggleViewAction());
    return m_side;
}

QDockWidget *Docks::addPane(const QString &title, const QString &name, QWidget *content)
{
    QDockWidget *dock = wrap(title, name, content);
    addPane(dock);
    return dock;
}

void Docks::addPane(QDockWidget *dock)
{
    m_window->addDockWidget(Qt::BottomDockWidgetArea, dock);
    m_menu->addAction(dock->toggleViewAction());
    if (!m_firstPane) {
        m_firstPane = dock;
        return;
    }
    m_window->tabifyDockWidget(m_firstPane, dock);
    growWhenShown(dock);
}

void Docks::arrange()
{
    m_firstPane->raise();
    m_window->setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    const QFontMetrics metrics = m_window->fontMetrics();
    m_window->resizeDocks({m_side}, {metrics.averageCharWidth() * 34}, Qt::Horizontal);
    m_window->resizeDocks({m_firstPane}, {metrics.height() * 4}, Qt::Vertical);
}

void Docks::bringForward(QDockWidget *dock)
{
    dock->show();
    dock->raise();
    growLater(dock);
}

/// Initially the panes are low, to leave room for the views: too low for a list.
void Docks::growWhenShown(QDockWidget *dock)
{
    const auto leaveRoom = [dock, line = m_window->fontMetrics().height()] {
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
void Docks::growLater(QDockWidget *dock)
{
    QTimer::singleShot(0, this, [this, dock] {
        const int line = m_window->fontMetrics().height();
        if (dock->isVisible() && dock->widget() && dock->widget()->height() < 6 * line)
            m_window->resizeDocks({dock}, {12 * line}, Qt::Vertical);
    });
}

} // namespace Workbench
