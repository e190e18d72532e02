#include "core/actionmanager.h"

#include "host/core/commandregistry.h"
#include "host/core/viewarea.h"

#include <QAction>

#include <algorithm>

namespace Core {

void ActionManager::registerAction(QAction *action, const QString &id, const QString &context)
{
    CommandRegistry::get()->registerAction(action, id, context);
}

CommandRegistry *CommandRegistry::get()
{
    // Intentionally leaked: static actions may be destroyed after the application.
    static CommandRegistry *const self = new CommandRegistry;
    return self;
}

CommandRegistry::CommandRegistry()
{
    connect(ViewArea::get(), &ViewArea::activeContextsChanged, this, &CommandRegistry::updateAll);
}

QAction *CommandRegistry::command(const QString &id)
{
    return get()->find(id).proxy;
}

void CommandRegistry::setDefaultText(const QString &id, const QString &text)
{
    get()->find(id).defaultText = text;
    get()->update(id);
}

CommandRegistry::Command &CommandRegistry::find(const QString &id)
{
    auto it = m_commands.find(id);
    if (it == m_commands.end()) {
        auto *proxy = new QAction(this);
        proxy->setEnabled(false);
        connect(proxy, &QAction::triggered, this, [this, id] {
            QAction *action = activeAction(id);
            if (action && action->isEnabled()) // trigger() does not check
                action->trigger();
        });
        it = m_commands.insert(id, {proxy, QString(), {}});
    }
    return *it;
}

void CommandRegistry::registerAction(QAction *action, const QString &id, const QString &context)
{
    if (!action)
        return;
    QList<Registration> &registrations = find(id).registrations;
    for (const Registration &known : qAsConst(registrations)) {
        if (known.action == action && known.context == context)
            return;
    }
    registrations.append({action, context});
    connect(action, &QAction::changed, this, [this, id] { update(id); });
    connect(action, &QObject::destroyed, this, [this, id] { update(id); });
    update(id);
}

QAction *CommandRegistry::activeAction(const QString &id) const
{
    const QStringList contexts = ViewArea::get()->activeContexts();
    const QList<Registration> registrations = m_commands.value(id).registrations;
    for (auto it = registrations.crbegin(); it != registrations.crend(); ++it) {
        if (it->action && contexts.contains(it->context))
            return it->action;
    }
    return nullptr;
}

void CommandRegistry::update(const QString &id)
{
    Command &command = find(id);
    const auto gone = [](const Registration &r) { return !r.action; };
    command.registrations.erase(
        std::remove_if(command.registrations.begin(), command.registrations.end(), gone),
        command.registrations.end());
    const QAction *action = activeAction(id);
    command.proxy->setText(action ? action->text() : command.defaultText);
    command.proxy->setToolTip(action ? action->toolTip() : QString());
    command.proxy->setEnabled(action && action->isEnabled());
}

void CommandRegistry::updateAll()
{
    const QStringList ids = m_commands.keys();
    for (const QString &id : ids)
        update(id);
}

} // namespace Core
