#include "host/te/worker.h"

namespace TE {

Worker::Worker(std::function<void(const Worker &)> work)
    : m_thread([this, work = std::move(work)] {
        work(*this);
        QMetaObject::invokeMethod(this, &Worker::done, Qt::QueuedConnection);
    })
{
}

Worker::~Worker()
{
    end();
}

void Worker::end()
{
    cancel();
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace TE
