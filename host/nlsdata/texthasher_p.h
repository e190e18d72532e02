#pragma once

#include <QByteArray>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace NlsData {

/// Computes the SHA-256 of a buffer in a separate thread while the buffer is being filled.
class TextHasher
{
public:
    /// `text` is borrowed and must outlive the hasher.
    explicit TextHasher(const char *text);
    /// Cancels, unless finish() was called.
    ~TextHasher();

    /// Announces that the first `size` bytes are available and will not change.
    void add(size_t size);

    /// Announces the end of the text and returns the result, in hexadecimal.
    QByteArray finish();

private:
    void run();
    void end(bool discard);

    const char *const m_text;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    size_t m_size = 0;
    bool m_ended = false;
    bool m_discarded = false;
    QByteArray m_result;
    std::thread m_thread; ///< last: it uses the others
};

} // namespace NlsData
