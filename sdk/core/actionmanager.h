#pragma once

#include "hostexport.h"

class QAction;
class QString;

namespace Core {

/// Binds the commands of the menus to the actions that plug-ins register for them.
class HOST_EXPORT ActionManager
{
public:
    /// Binds the command `id` to `action` while `context` is active: the menu entry then takes its
    /// text, tool tip and enabled state from the action and triggers it. The action is not owned;
    /// destroying it ends the registration.
    static void registerAction(QAction *action, const QString &id, const QString &context);
};

} // namespace Core
