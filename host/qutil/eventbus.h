#pragma once

#include "hostexport.h"

#include <QString>

#include <vector>

namespace QUtil {

class IEvent;
class IEventHandler;

/// The host's side of the event bus.
class HOST_EXPORT EventBus
{
public:
    static EventBus *get();

    /// Calls synchronously, in order of subscription, every handler that was subscribed to the
    /// event's type when the delivery began and still is. Deliveries may nest, and handlers may
    /// subscribe, unsubscribe and be destroyed during one.
    void deliver(const IEvent &event);

    void subscribe(IEventHandler *handler, const QString &type);
    void unsubscribe(IEventHandler *handler, const QString &type);

    /// Number of live subscriptions to `type`.
    int subscriberCount(const QString &type) const;

private:
    struct Subscription
    {
        IEventHandler *handler; // not owned; null once unsubscribed
        QString type;
    };

    // Entries keep their indexes during a delivery; dead ones are removed afterwards.
    std::vector<Subscription> m_subscriptions;
    int m_depth = 0;
};

} // namespace QUtil
