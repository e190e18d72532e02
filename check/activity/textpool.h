#pragma once

#include <QtGlobal>

#include <string_view>
#include <vector>

namespace Check {

/// Texts that lie side by side, each known by where it begins.
class TextPool
{
public:
    quint32 add(std::string_view text)
    {
        const auto begin = quint32(m_text.size());
        m_text.insert(m_text.end(), text.begin(), text.end());
        return begin;
    }
    std::string_view at(quint32 begin, quint32 size) const { return {m_text.data() + begin, size}; }
    size_t size() const { return m_text.size(); }
    void shrink() { m_text.shrink_to_fit(); }

private:
    std::vector<char> m_text;
};

} // namespace Check
