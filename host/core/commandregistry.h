#pragma once

#include "hostexport.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

class QAction;

namespace Core {

/// The host's side of the action manager: the commands that menus show.
class HOST_EXPORT CommandRegistry : public QObject
{
    Q_OBJECT

public:
    static CommandRegistry *get();

    /// The command `id`, created by the first call and owned by the manager. It shows text, tool
    /// tip and enabled state of the registered action whose context is active, and triggers it;
    /// without one it is disabled and shows its default text.
    static QAction *command(const QString &id);

    /// Text of the command while no registered action's context is active.
    static void setDefaultText(const QString &id, const QString &text);

    void registerAction(QAction *action, const QString &id, const QString &context);

private:
    struct Registration
    {
        QPointer<QAction> action;
        QString context;
    };
    struct Command
    {
        QAction *proxy; // a child of the manager
        QString defaultText;
        QList<Registration> registrations;
    };

    CommandRegistry();
    Command &find(const QString &id);
    QAction *activeAction(const QString &id) const;
    void update(const QString &id);
    void updateAll();

    QHash<QString, Command> m_commands;
};

} // namespace Core
