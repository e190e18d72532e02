#include "qutil/eventmanager.h"

#include "host/qutil/eventbus.h"
#include "qutil/ievent.h"
#include "qutil/ieventhandler.h"

#include <algorithm>

namespace QUtil {

EventManager::EventManager()
    : d(std::make_unique<EventBus>())
{
}

EventManager::~EventManager() = default;

EventManager *EventManager::instance()
{
    // Intentionally leaked: static handlers may still unsubscribe when the process ends.
    static EventManager *const manager = new EventManager;
    return manager;
}

void EventManager::subscribe(IEventHandler *handler, const QString &type)
{
    d->subscribe(handler, type);
}

void EventManager::unsubscribe(IEventHandler *handler, const QString &type)
{
    d->unsubscribe(handler, type);
}

EventBus *EventBus::get()
{
    return EventManager::instance()->d.get();
}

void EventBus::subscribe(IEventHandler *handler, const QString &type)
{
    const auto same = [handler, &type](const Subscription &s) {
        return s.handler == handler && s.type == type;
    };
    if (handler && std::none_of(m_subscriptions.cbegin(), m_subscriptions.cend(), same))
        m_subscriptions.push_back({handler, type});
}

void EventBus::unsubscribe(IEventHandler *handler, const QString &type)
{
    for (auto it = m_subscriptions.begin(); it != m_subscriptions.end(); ++it) {
        if (it->handler != handler || it->type != type)
            continue;
        if (m_depth > 0)
            it->handler = nullptr;
        else
            m_subscriptions.erase(it);
        return;
    }
}

void EventBus::deliver(const IEvent &event)
{
    const IEvent copy(event); // a handler may destroy the caller's event
    const std::size_t end = m_subscriptions.size();
    ++m_depth;
    for (std::size_t i = 0; i < end; ++i) {
        IEventHandler *handler = m_subscriptions[i].handler;
        if (handler && m_subscriptions[i].type == copy.type())
            handler->handleIEvent(&copy);
    }
    if (--m_depth > 0)
        return;
    const auto dead = [](const Subscription &s) { return !s.handler; };
    m_subscriptions.erase(std::remove_if(m_subscriptions.begin(), m_subscriptions.end(), dead),
                          m_subscriptions.end());
}

int EventBus::subscriberCount(const QString &type) const
{
    return static_cast<int>(
        std::count_if(m_subscriptions.cbegin(), m_subscriptions.cend(),
                      [&type](const Subscription &s) { return s.handler && s.type == type; }));
}

} // namespace QUtil
