#pragma once

#include "hostexport.h"

#include <memory>

class QString;

namespace QUtil {

class IEventHandler;

/// The event bus. GUI thread only.
class HOST_EXPORT EventManager
{
public:
    static EventManager *instance();

    /// Delivers events whose type equals `type` (case-sensitively) to `handler` from now on.
    /// Subscribing twice changes nothing. The handler is not owned.
    void subscribe(QUtil::IEventHandler *handler, const QString &type);

    /// Ends a subscription, also while an event is being delivered. An unknown one is ignored.
    void unsubscribe(QUtil::IEventHandler *handler, const QString &type);

private:
    friend class EventBus;
    EventManager();
    ~EventManager();

    const std::unique_ptr<class EventBus> d;
};

} // namespace QUtil
