#pragma once

#include <QByteArray>

#include <string_view>

namespace Check {

/// Texts that lie side by side, each known by where it begins. At most 2 GiB in all.
class TextPool
{
public:
    quint32 add(std::string_view text)
    {
        const int begin = m_text.size();
        m_text.append(text.data(), int(text.size()));
        return quint32(begin);
    }
    std::string_view at(quint32 begin, quint32 size) const
    {
        return {m_text.constData() + begin, size};
    }
    size_t size() const { return size_t(m_text.size()); }

private:
    QByteArray m_text;
};

} // namespace Check
