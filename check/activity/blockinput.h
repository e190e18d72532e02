#pragma once

#include <QString>

#include <memory>
#include <string_view>

class QIODevice;

namespace Check {

/// Ends the reading of an activity file.
struct ActivityError
{
    QString cause; ///< without the place
    qint64 offset; ///< of the byte in the file
};

/// The bytes of a file in blocks, so that memory stays flat however long it is. Not mapped: a
/// simulator may be writing it.
class BlockInput
{
public:
    static constexpr int BLOCK = 1 << 20;
    static constexpr qint64 MAXIMUM_TOKEN = 1 << 20;

    /// Reads `device`, which is borrowed and open, from where it is.
    explicit BlockInput(QIODevice *device);

    /// The next token between blanks; valid until the next call. False at the end of the file.
    /// Throws ActivityError.
    bool next(std::string_view *token)
    {
        const char *p = m_at;
        while (p < m_end && uchar(*p) <= ' ')
            ++p;
        const char *begin = p;
        while (p < m_end && uchar(*p) > ' ')
            ++p;
        if (p == m_end)
            return nextOfMore(token);
        checkLength(begin, p - begin);
        m_token = begin;
        m_at = p;
        *token = {begin, size_t(p - begin)};
        return true;
    }

    /// Where the last token begins.
    qint64 tokenOffset() const { return m_base + (m_token - m_buffer.get()); }
    /// Where the next byte is read.
    qint64 offset() const { return m_base + (m_at - m_buffer.get()); }
    /// Where the bytes end that have been read.
    qint64 endOffset() const { return m_base + (m_end - m_buffer.get()); }

protected:
    /// Reads on, so that the bytes from `keep` on stay, at the front. False at the end of the file.
    /// `m_at` and `m_token` are at the front then.
    bool refill(const char *keep);

    /// Throws when `size` bytes from `begin` on are too long for a token.
    void checkLength(const char *begin, qint64 size) const
    {
        if (size > MAXIMUM_TOKEN)
            refuse(begin);
    }

    const char *m_at = nullptr;    ///< next byte
    const char *m_end = nullptr;   ///< of the bytes that have been read
    const char *m_token = nullptr; ///< begin of the last token

private:
    bool nextOfMore(std::string_view *token);
    [[noreturn]] void refuse(const char *begin) const;

    QIODevice *const m_device;
    const std::unique_ptr<char[]> m_buffer; ///< two blocks
    qint64 m_base;                          ///< offset in the file of the buffer's first byte
};

} // namespace Check
