#pragma once

#include "hostexport.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <thread>

namespace TE {

/// Runs a function in its own thread. The destructor waits for the function to end, so that it may
/// use its owner's members; a long function checks isCancelled().
class HOST_EXPORT Worker : public QObject
{
    Q_OBJECT

public:
    explicit Worker(std::function<void(const Worker &)> work);
    ~Worker() override;

    void cancel() { m_cancelled = true; }
    bool isCancelled() const { return m_cancelled; }

    /// Cancels the function and waits for its end.
    void end();

signals:
    /// Emitted in the owner's thread, from its event loop.
    void done();

private:
    std::atomic<bool> m_cancelled{false};
    std::thread m_thread;
};

} // namespace TE
