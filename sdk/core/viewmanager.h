#pragma once

#include "hostexport.h"

#include <QObject>
#include <QString>

class QWidget;

namespace Core {

class IView;

/// Shows views and reports which one is active. GUI thread only.
class HOST_EXPORT ViewManager : public QObject
{
    Q_OBJECT

public:
    static ViewManager *instance();

    /// Shows `view` and makes it the active one. The first call takes ownership of it.
    void showView(Core::IView *view);

    /// Sends the view its close event. When the view accepts, viewClosed() is emitted and the view
    /// is deleted later, from the event loop. False if the view refuses and stays open.
    bool closeView(Core::IView *view);

    /// Registers that `context` is active while `widget` (or a child of it) is the active view.
    /// With `enabled` false removes the registration.
    void registerContext(QWidget *widget, const QString &context, bool enabled);

    /// Parent for message boxes that belong to no view; may be null.
    QWidget *dialogParent() const;

signals:
    /// `view` is the new active view, null if there is none.
    void viewActiveted(Core::IView *view);

    /// Emitted before the view is destroyed, while it still is a view.
    void viewClosed(Core::IView *view);

private:
    friend class ViewArea;
    explicit ViewManager(class ViewArea *d);

    class ViewArea *const d;
};

} // namespace Core
