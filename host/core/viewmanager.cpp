#include "core/viewmanager.h"

#include "core/iview.h"
#include "host/core/viewarea.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QTabWidget>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace Core {

namespace {

constexpr int LEVEL_POLL = 20; // ms

bool belongsTo(const QWidget *widget, const QWidget *ancestor)
{
    while (widget && widget != ancestor)
        widget = widget->parentWidget();
    return widget;
}

int depth(const QWidget *widget)
{
    int parents = 0;
    while ((widget = widget->parentWidget()))
        ++parents;
    return parents;
}

/// The visible windows that run, or may run, their own event loop: menus and modal dialogs, inner
/// ones before those that opened them. The list of a combo box has no loop.
QList<QWidget *> waitingWindows()
{
    QList<QWidget *> waiting;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        const bool waits =
            window->windowModality() == Qt::ApplicationModal || qobject_cast<QMenu *>(window);
        if (waits && window->isVisible())
            waiting.append(window);
    }
    std::sort(waiting.begin(), waiting.end(),
              [](const QWidget *a, const QWidget *b) { return depth(a) > depth(b); });
    return waiting;
}

} // namespace

ViewManager::ViewManager(ViewArea *d)
    : d(d)
{
}

ViewManager *ViewManager::instance()
{
    return ViewArea::get()->manager();
}

void ViewManager::showView(IView *view)
{
    d->showView(view);
}

bool ViewManager::closeView(IView *view)
{
    return d->closeView(view);
}

void ViewManager::registerContext(QWidget *widget, const QString &context, bool enabled)
{
    d->registerContext(widget, context, enabled);
}

QWidget *ViewManager::dialogParent() const
{
    return d->dialogParent();
}

ViewArea *ViewArea::get()
{
    // Intentionally leaked: views that outlive the application's objects may refer to it.
    static ViewArea *const self = new ViewArea;
    return self;
}

ViewArea::ViewArea()
    : m_manager(new ViewManager(this))
{
}

void ViewArea::setArea(QTabWidget *area)
{
    if (m_area)
        m_area->disconnect(this);
    m_area = area;
    if (!area)
        return;
    connect(area, &QTabWidget::currentChanged, this, &ViewArea::updateActiveView);
    connect(area, &QTabWidget::tabCloseRequested, this, &ViewArea::onTabCloseRequested);
}

QTabWidget *ViewArea::area()
{
    if (!m_area)
        setArea(new QTabWidget); // leaked, like this object
    return m_area;
}

IView *ViewArea::activeView() const
{
    return qobject_cast<IView *>(m_active.data());
}

void ViewArea::showView(IView *view)
{
    if (!view || m_closed.contains(view))
        return;
    if (!m_views.contains(view)) {
        m_views.append(view);
        view->installEventFilter(this);
        connect(view, &IView::shortTitleChanged, this, [this, view] { updateTitle(view); });
        connect(view, &QObject::destroyed, this, &ViewArea::onViewDestroyed);
        area()->addTab(view, QString());
        updateTitle(view);
    }
    area()->setCurrentWidget(view);
    updateActiveView();
}

bool ViewArea::closeView(IView *view)
{
    if (!m_views.contains(view))
        return false;
    if (m_closing.contains(view)) {
        m_reasked.insert(view);
        return false;
    }
    // Not QWidget::close(), which returns true without asking while a close event of the view is
    // being handled.
    QCloseEvent event;
    QCoreApplication::sendEvent(view, &event);
    return !m_views.contains(view);
}

bool ViewArea::closeAllViews()
{
    while (!m_views.isEmpty()) {
        IView *view = activeView() ? activeView() : m_views.last();
        if (!closeView(view))
            return false;
    }
    return true;
}

void ViewArea::discardAllViews()
{
    while (!m_views.isEmpty())
        finishClose(m_views.last());
    for (QObject *view : qAsConst(m_closed))
        view->deleteLater(); // also those that wait for a dialog of theirs
}

void ViewArea::registerContext(QWidget *widget, const QString &context, bool enabled)
{
    const auto same = [widget, &context](const Context &c) {
        return !c.widget || (c.widget == widget && c.name == context);
    };
    m_contexts.erase(std::remove_if(m_contexts.begin(), m_contexts.end(), same), m_contexts.end());
    if (enabled && widget)
        m_contexts.append({widget, context});
    updateContexts();
}

bool ViewArea::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    for (IView *view : qAsConst(m_views)) {
        if (view == watched) {
            handleCloseEvent(view, event);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void ViewArea::handleCloseEvent(IView *view, QEvent *event)
{
    if (m_closing.contains(view)) {
        m_reasked.insert(view);
        event->ignore();
        return;
    }
    m_closing.insert(view);
    const QPointer<IView> guard = view;
    static_cast<QObject *>(view)->event(event);
    if (!guard)
        return; // onViewDestroyed() has removed it
    m_closing.remove(view);
    const bool reasked = m_reasked.remove(view);
    if (!m_views.contains(view))
        return; // discarded in the meantime
    if (event->isAccepted())
        finishClose(view);
    else if (reasked)
        QTimer::singleShot(0, view, [this, view] { closeView(view); });
}

void ViewArea::finishClose(IView *view)
{
    m_views.removeAll(view);
    m_closed.insert(view);
    const QPointer<IView> guard = view;
    emit m_manager->viewClosed(view);
    if (!guard)
        return;
    const int index = m_area ? m_area->indexOf(view) : -1;
    if (index >= 0)
        m_area->removeTab(index); // activates the next view
    view->hide();
    updateActiveView();

    const QList<QWidget *> waiting = waitingWindows();
    QList<QPointer<QWidget>> own;
    for (QWidget *window : waiting) {
        if (belongsTo(window, view))
            own.append(window);
    }
    for (const QPointer<QWidget> &window : qAsConst(own)) {
        if (window)
            window->close();
    }
    if (own.isEmpty())
        view->deleteLater();
    else
        deleteAtLevel(view, qMax(0, QThread::currentThread()->loopLevel() - waiting.size()));
}

/// Code of a view that runs a dialog is on the stack below it: a deletion from the dialog's event
/// loop, or from one nested deeper, would free objects still in use on the stack. So it waits until
/// the dialogs' loops have ended, which leaves `level` loops.
void ViewArea::deleteAtLevel(IView *view, int level)
{
    if (QThread::currentThread()->loopLevel() <= level)
        view->deleteLater();
    else
        QTimer::singleShot(LEVEL_POLL, view, [this, view, level] { deleteAtLevel(view, level); });
}

void ViewArea::onTabCloseRequested(int index)
{
    if (auto *view = qobject_cast<IView *>(m_area->widget(index)))
        closeView(view);
}

void ViewArea::onViewDestroyed(QObject *view)
{
    // Only the address is used: the object is not a view any more.
    m_views.erase(std::remove_if(m_views.begin(), m_views.end(),
                                 [view](const QObject *known) { return known == view; }),
                  m_views.end());
    m_closing.remove(view);
    m_reasked.remove(view);
    m_closed.remove(view);
    updateActiveView();
}

void ViewArea::updateTitle(IView *view)
{
    const int index = m_area ? m_area->indexOf(view) : -1;
    if (index < 0)
        return;
    QString text = view->shortTitle();
    const QString toolTip = text.toHtmlEscaped();
    m_area->setTabText(index, text.replace(QLatin1Char('&'), QLatin1String("&&")));
    m_area->setTabToolTip(index, QStringLiteral("<span>%1</span>").arg(toolTip));
}

void ViewArea::updateActiveView()
{
    auto *view = m_area ? qobject_cast<IView *>(m_area->currentWidget()) : nullptr;
    if (!m_views.contains(view))
        view = nullptr;
    if (view == m_active)
        return updateContexts();
    // A view that is being destroyed may have only its QWidget part left.
    auto *previous = qobject_cast<IView *>(m_active.data());
    m_active = view;
    if (previous)
        previous->onDeactivated();
    if (m_active == view && view)
        view->onActivated();
    updateContexts();
    emit m_manager->viewActiveted(activeView());
}

void ViewArea::updateContexts()
{
    QStringList active;
    for (const Context &context : qAsConst(m_contexts)) {
        if (m_active && context.widget && belongsTo(m_active, context.widget))
            active.append(context.name);
    }
    if (active == m_activeContexts)
        return;
    m_activeContexts = active;
    emit activeContextsChanged();
}

} // namespace Core
