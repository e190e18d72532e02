#include "core/viewmanager.h"

#include "core/iview.h"
#include "host/core/viewmanager_p.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QTabWidget>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace Core {

namespace {

bool belongsTo(const QWidget *widget, const QWidget *ancestor)
{
    while (widget && widget != ancestor)
        widget = widget->parentWidget();
    return widget;
}

/// Closes the modal dialogs that `view` runs; true when there were any.
bool closeModalDialogs(const QWidget *view)
{
    bool any = false;
    while (QWidget *dialog = QApplication::activeModalWidget()) {
        if (!belongsTo(dialog, view))
            break;
        any = true;
        if (!dialog->close())
            break;
    }
    return any;
}

} // namespace

ViewManager::ViewManager(ViewManagerPrivate *d)
    : d(d)
{
}

ViewManager *ViewManager::instance()
{
    return ViewManagerPrivate::get()->manager();
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

ViewManagerPrivate *ViewManagerPrivate::get()
{
    // Never destroyed: views that outlive the application's objects may still refer to it.
    static ViewManagerPrivate *const self = new ViewManagerPrivate;
    return self;
}

ViewManagerPrivate::ViewManagerPrivate()
    : m_manager(new ViewManager(this))
{
}

void ViewManagerPrivate::setArea(QTabWidget *area)
{
    if (m_area)
        m_area->disconnect(this);
    m_area = area;
    if (!area)
        return;
    connect(area, &QTabWidget::currentChanged, this, &ViewManagerPrivate::updateActiveView);
    connect(area, &QTabWidget::tabCloseRequested, this, &ViewManagerPrivate::onTabCloseRequested);
}

QTabWidget *ViewManagerPrivate::area()
{
    if (!m_area)
        setArea(new QTabWidget); // lives until the process ends, as this object does
    return m_area;
}

IView *ViewManagerPrivate::activeView() const
{
    return m_active;
}

void ViewManagerPrivate::showView(IView *view)
{
    if (!view || m_closed.contains(view))
        return;
    if (!m_views.contains(view)) {
        m_views.append(view);
        view->installEventFilter(this);
        connect(view, &IView::shortTitleChanged, this, [this, view] { updateTitle(view); });
        connect(view, &QObject::destroyed, this, &ViewManagerPrivate::onViewDestroyed);
        area()->addTab(view, QString());
        updateTitle(view);
    }
    area()->setCurrentWidget(view);
    updateActiveView();
}

bool ViewManagerPrivate::closeView(IView *view)
{
    if (!m_views.contains(view))
        return false;
    if (m_closing.contains(view)) {
        m_reasked.insert(view);
        return false;
    }
    // Not QWidget::close(): while a close event of the view is being handled, that answers true
    // without asking.
    QCloseEvent event;
    QCoreApplication::sendEvent(view, &event);
    return !m_views.contains(view);
}

bool ViewManagerPrivate::closeAllViews()
{
    while (!m_views.isEmpty()) {
        IView *view = m_active && m_views.contains(m_active) ? m_active.data() : m_views.last();
        if (!closeView(view))
            return false;
    }
    return true;
}

void ViewManagerPrivate::discardAllViews()
{
    while (!m_views.isEmpty())
        finishClose(m_views.last());
}

void ViewManagerPrivate::registerContext(QWidget *widget, const QString &context, bool enabled)
{
    const auto same = [widget, &context](const Context &c) {
        return !c.widget || (c.widget == widget && c.name == context);
    };
    m_contexts.erase(std::remove_if(m_contexts.begin(), m_contexts.end(), same), m_contexts.end());
    if (enabled && widget)
        m_contexts.append({widget, context});
    updateContexts();
}

bool ViewManagerPrivate::eventFilter(QObject *watched, QEvent *event)
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

void ViewManagerPrivate::handleCloseEvent(IView *view, QEvent *event)
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
        return; // onViewDestroyed() has forgotten it
    m_closing.remove(view);
    const bool reasked = m_reasked.remove(view);
    if (event->isAccepted())
        finishClose(view);
    else if (reasked)
        QTimer::singleShot(0, view, [this, view] { closeView(view); });
}

void ViewManagerPrivate::finishClose(IView *view)
{
    m_views.removeAll(view);
    m_closed.insert(view);
    emit m_manager->viewClosed(view);
    if (m_active == view) {
        m_active.clear();
        view->onDeactivated();
    }
    const int index = m_area ? m_area->indexOf(view) : -1;
    if (index >= 0)
        m_area->removeTab(index);
    view->hide();
    updateActiveView();
    if (closeModalDialogs(view))
        deleteWhenUnwound(view);
    else
        view->deleteLater();
}

/// A dialog of the view runs, so code of the view is on the stack: a deletion from the dialog's
/// event loop would pull the ground from under it. Waits until that loop has ended.
void ViewManagerPrivate::deleteWhenUnwound(IView *view)
{
    const int level = QThread::currentThread()->loopLevel();
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, view,
            [view, level] {
                if (QThread::currentThread()->loopLevel() < level)
                    view->deleteLater();
            });
}

void ViewManagerPrivate::onTabCloseRequested(int index)
{
    if (auto *view = qobject_cast<IView *>(m_area->widget(index)))
        closeView(view);
}

void ViewManagerPrivate::onViewDestroyed(QObject *view)
{
    // Only the address counts here: the object is no view any more.
    m_views.removeAll(static_cast<IView *>(view));
    m_closing.remove(view);
    m_reasked.remove(view);
    m_closed.remove(view);
    const bool wasActive = m_active == view;
    if (wasActive)
        m_active.clear();
    updateActiveView();
    if (wasActive && !m_active)
        emit m_manager->viewActiveted(nullptr);
}

void ViewManagerPrivate::updateTitle(IView *view)
{
    const int index = m_area ? m_area->indexOf(view) : -1;
    if (index < 0)
        return;
    QString text = view->shortTitle();
    const QString toolTip = text.toHtmlEscaped();
    m_area->setTabText(index, text.replace(QLatin1Char('&'), QLatin1String("&&")));
    m_area->setTabToolTip(index, QStringLiteral("<span>%1</span>").arg(toolTip));
}

void ViewManagerPrivate::updateActiveView()
{
    auto *view = m_area ? qobject_cast<IView *>(m_area->currentWidget()) : nullptr;
    if (!m_views.contains(view))
        view = nullptr;
    if (view == m_active)
        return updateContexts();
    const QPointer<IView> previous = m_active;
    m_active = view;
    if (previous)
        previous->onDeactivated();
    if (m_active == view && view)
        view->onActivated();
    updateContexts();
    emit m_manager->viewActiveted(m_active);
}

void ViewManagerPrivate::updateContexts()
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
