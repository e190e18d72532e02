#pragma once

#include <QVector>

#include <string>
#include <string_view>
#include <unordered_map>

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
        if (int(key) >= m_table.size())
            m_table.resize(int(key) + 1);
        quint32 &entry = m_table[int(key)];
        if (entry == 0)
            entry = ++m_size;
        return entry - 1;
    }

    /// The number of a code, or NONE.
    quint32 find(std::string_view code) const
    {
        const quint32 key = keyOf(code);
        if (key != NONE)
            return int(key) < m_table.size() ? m_table.at(int(key)) - 1 : NONE;
        const auto entry = m_long.find(std::string(code));
        return entry == m_long.end() ? NONE : entry->second;
    }

    quint32 size() const { return m_size; }

private:
    static constexpr quint32 TABLE = 1 << 24;

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

    QVector<quint32> m_table; ///< numbers from 1 on
    std::unordered_map<std::string, quint32> m_long;
    quint32 m_size = 0;
};

} // namespace Check
