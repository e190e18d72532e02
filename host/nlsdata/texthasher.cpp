#include "texthasher_p.h"

#include "host/utils/sha256.h"

#include <algorithm>

namespace NlsData {

namespace {

constexpr size_t STEP = 1 << 20; // bytes between two checks for cancellation

} // namespace

TextHasher::TextHasher(const char *text)
    : m_text(text)
    , m_thread([this] { run(); })
{
}

TextHasher::~TextHasher()
{
    if (m_thread.joinable())
        end(true);
}

void TextHasher::add(size_t size)
{
    const std::lock_guard lock(m_mutex);
    m_size = size;
    m_changed.notify_one();
}

QByteArray TextHasher::finish()
{
    end(false);
    return m_result;
}

void TextHasher::end(bool discard)
{
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
        m_discarded = discard;
        m_changed.notify_one();
    }
    m_thread.join();
}

void TextHasher::run()
{
    Utils::Sha256 hash;
    std::unique_lock lock(m_mutex);
    for (size_t done = 0;;) {
        m_changed.wait(lock, [&] { return m_size > done || m_ended; });
        if (m_discarded)
            return;
        if (m_size == done)
            break;
        const size_t count = std::min(STEP, m_size - done);
        lock.unlock();
        hash.add({m_text + done, count});
        done += count;
        lock.lock();
    }
    m_result = hash.result();
}

} // namespace NlsData
