#pragma once

#include "hostexport.h"

#include <QObject>
#include <QString>

class QWidget;

namespace Core {

class IView;

/// Shows views and tells which of them is active. GUI thread only.
class HOST_EXPORT ViewManager : public QObject
{
    Q_OBJECT

public:
    static ViewManager *instance();

    /// Shows `view` and makes it the active one. The first call takes ownership of it.
    void showView(Core::IView *view);

    /// Sends the view its close event. When the view accepts, viewClosed() is emitted and the view
    /// is deleted later, from the event loop; a refusal leaves it open. False when it stays open.
    bool closeView(Core::IView *view);

    /// Tells that `context` is active while `widget` (or a child of it) is the active view.
    /// With `enabled` false the registration is taken back.
    void registerContext(QWidget *widget, const QString &context, bool enabled);

    /// Parent for message boxes that belong to no view; may be null.
    QWidget *dialogParent() const;

signals:
    /// `view` is the view that became active, null when there is none.
    void viewActiveted(Core::IView *view);

    /// Emitted before the view is destroyed, while it still is what it was.
    void viewClosed(Core::IView *view);

private:
    friend class ViewArea;
    explicit ViewManager(class ViewArea *d);

    class ViewArea *const d;
};

} // namespace Core
