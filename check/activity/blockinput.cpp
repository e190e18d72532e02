#include "check/activity/blockinput.h"

#include <QIODevice>

#include <cstring>

namespace Check {

BlockInput::BlockInput(QIODevice *device)
    : m_device(device)
    , m_buffer(new char[2 * BLOCK])
    , m_base(device->pos())
{
    m_at = m_end = m_token = m_buffer.get();
}

void BlockInput::refuse(const char *begin) const
{
    throw ActivityError{QStringLiteral("a token is longer than 1 MiB"),
                        m_base + (begin - m_buffer.get())};
}

bool BlockInput::refill(const char *keep)
{
    const qint64 kept = m_end - keep;
    checkLength(keep, kept);
    m_base += keep - m_buffer.get();
    std::memmove(m_buffer.get(), keep, size_t(kept));
    m_at = m_token = m_buffer.get();
    m_end = m_at + kept;
    const qint64 size = m_device->read(m_buffer.get() + kept, BLOCK);
    if (size < 0)
        throw ActivityError{m_device->errorString(), m_base + kept};
    m_end += size;
    return size > 0;
}

/// The same where the end of the bytes that have been read is in the way.
bool BlockInput::nextOfMore(std::string_view *token)
{
    const char *p = m_at;
    for (;;) {
        while (p < m_end && uchar(*p) <= ' ')
            ++p;
        if (p < m_end)
            break;
        if (!refill(p))
            return false;
        p = m_at;
    }
    const char *begin = p;
    for (;;) {
        while (p < m_end && uchar(*p) > ' ')
            ++p;
        if (p < m_end)
            break;
        const qint64 size = p - begin;
        const bool isMore = refill(begin);
        begin = m_at;
        p = begin + size;
        if (!isMore)
            break;
    }
    checkLength(begin, p - begin);
    m_token = begin;
    m_at = p;
    *token = {begin, size_t(p - begin)};
    return true;
}

} // namespace Check
