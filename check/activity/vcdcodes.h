#pragma once

#include <QtGlobal>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Check {

/// Numbers the identifier codes of a VCD file in the order in which they come. Codes whose value
/// in base 94 is small are in a table, longer ones in a hash.
class VcdCodes
{
public:
    static constexpr quint32 NONE = 0xffffffff;

    /// The number of a code, a new one at its first appearance.
    quint32 add(std::string_view code)
    {
        const quint32 key = keyOf(code);
        if (key == NONE) {
            const auto [entry, isNew] = m_long.emplace(std::string(code), m_size);
            m_size += isNew;
            return entry->second;
        }
        if (key / PAGE >= m_pages.size())
            m_pages.resize(key / PAGE + 1);
        std::unique_ptr<Page> &page = m_pages[key / PAGE];
        if (!page)
            page = std::make_unique<Page>();
        quint32 &entry = (*page)[key % PAGE];
        if (entry == 0)
            entry = ++m_size;
        return entry - 1;
    }

    /// The number of a code, or NONE.
    quint32 find(std::string_view code) const
    {
        const quint32 key = keyOf(code);
        if (key != NONE) {
            const bool isKnown = key / PAGE < m_pages.size() && m_pages[key / PAGE];
            return isKnown ? (*m_pages[key / PAGE])[key % PAGE] - 1 : NONE;
        }
        const auto entry = m_long.find(std::string(code));
        return entry == m_long.end() ? NONE : entry->second;
    }

    quint32 size() const { return m_size; }

private:
    static constexpr quint32 TABLE = 1 << 24;
    static constexpr quint32 PAGE = 1 << 10;
    using Page = std::array<quint32, PAGE>; ///< numbers from 1 on

    /// Place in the table, or NONE.
    static quint32 keyOf(std::string_view code)
    {
        if (code.empty() || code.size() > 4)
            return NONE;
        quint32 key = 0;
        for (size_t i = code.size(); i-- > 0;) {
            const quint32 digit = quint32(uchar(code[i])) - '!' + 1;
            if (digit - 1 >= 94)
                return NONE;
            key = key * 94 + digit;
        }
        return key < TABLE ? key : NONE;
    }

    std::vector<std::unique_ptr<Page>> m_pages;
    std::unordered_map<std::string, quint32> m_long;
    quint32 m_size = 0;
};

} // namespace Check
