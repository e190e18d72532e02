#pragma once

namespace QUtil {

class IEvent;

/// A subscriber of the event bus. It unsubscribes before it is destroyed.
class IEventHandler
{
public:
    virtual ~IEventHandler() = default;

    /// Called synchronously for every event of a type that the handler has subscribed to. The
    /// handler may unsubscribe, be destroyed or destroy other handlers before it returns.
    virtual void handleIEvent(const QUtil::IEvent *event) = 0;
};

} // namespace QUtil
