#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace Check {

/// Texts in blocks that stay where they are, each known by its place. One that is shorter than 255
/// bytes takes a byte more than it has.
class TextPool
{
public:
    /// Whether there is still room for a text of that size.
    bool hasRoomFor(size_t size) const { return m_blocks.size() < BLOCKS || fits(size); }

    quint32 add(std::string_view text)
    {
        if (!fits(text.size())) {
            m_blocks.emplace_back(new char[std::max(BLOCK, HEAD + text.size())]);
            m_used = 0;
        }
        const auto place = quint32((m_blocks.size() - 1) * BLOCK + m_used);
        char *p = m_blocks.back().get() + m_used;
        const bool isShort = text.size() < LONG;
        const auto size = quint32(text.size());
        *p++ = char(isShort ? size : LONG);
        if (!isShort) {
            std::memcpy(p, &size, sizeof size);
            p += sizeof size;
        }
        std::memcpy(p, text.data(), text.size());
        m_used = size_t(p - m_blocks.back().get()) + text.size();
        return place;
    }

    std::string_view at(quint32 place) const
    {
        const char *p = m_blocks[place / BLOCK].get() + place % BLOCK;
        quint32 size = uchar(*p++);
        if (size == LONG) {
            std::memcpy(&size, p, sizeof size);
            p += sizeof size;
        }
        return {p, size};
    }

private:
    static constexpr quint32 LONG = 255; ///< in the place of a size that follows
    static constexpr size_t HEAD = 1 + sizeof(quint32);
    static constexpr size_t BLOCK = 1 << 20; ///< of the usual size
    static constexpr size_t BLOCKS = 4096;   ///< places are numbers of 32 bits

    bool fits(size_t size) const { return !m_blocks.empty() && m_used + HEAD + size <= BLOCK; }

    std::vector<std::unique_ptr<char[]>> m_blocks;
    size_t m_used = 0; ///< of the last block
};

} // namespace Check
