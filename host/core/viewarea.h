#pragma once

#include "hostexport.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

class QTabWidget;
class QWidget;

namespace Core {

class IView;
class ViewManager;

/// The host's side of the view manager. Unless the program sets an area, it shows the views in a
/// tab widget of its own without a window.
class HOST_EXPORT ViewArea : public QObject
{
    Q_OBJECT

public:
    static ViewArea *get();
    ViewManager *manager() const { return m_manager; }

    /// Sets where views are shown; not owned. Call it before the first view is shown. Its tabs'
    /// close buttons close views.
    void setArea(QTabWidget *area);
    QTabWidget *area();

    /// Parent for message boxes that belong to no view; not owned.
    void setDialogParent(QWidget *parent) { m_dialogParent = parent; }
    QWidget *dialogParent() const { return m_dialogParent; }

    /// The open views, in order of opening.
    QList<IView *> views() const { return m_views; }
    IView *activeView() const;

    void showView(IView *view);
    bool closeView(IView *view);

    /// Closes the open views one by one, the active one first; stops at the first that refuses and
    /// returns false.
    bool closeAllViews();

    /// Closes all views without asking, at the end of the program or of a test.
    void discardAllViews();

    void registerContext(QWidget *widget, const QString &context, bool enabled);

    /// The contexts of the active view.
    QStringList activeContexts() const { return m_activeContexts; }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void activeContextsChanged();

private:
    struct Context
    {
        QPointer<QWidget> widget;
        QString name;
    };

    ViewArea();
    void handleCloseEvent(IView *view, QEvent *event);
    void finishClose(IView *view);
    void deleteAtLevel(IView *view, int level);
    void onTabCloseRequested(int index);
    void onViewDestroyed(QObject *view);
    void updateTitle(IView *view);
    void updateActiveView();
    void updateContexts();

    ViewManager *const m_manager;
    QPointer<QTabWidget> m_area;
    QPointer<QWidget> m_dialogParent;
    QList<IView *> m_views;
    QPointer<QWidget> m_active;
    QList<Context> m_contexts;
    QStringList m_activeContexts;
    QSet<QObject *> m_closing; // views whose close event is being handled
    QSet<QObject *> m_reasked; // of these, those with a further request to close
    QSet<QObject *> m_closed;  // views that wait for their deletion
};

} // namespace Core
