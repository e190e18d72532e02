#pragma once

#include <QString>
#include <QVarLengthArray>

#include <unordered_map>

namespace Check {

/// Hashes of the fronts and the backs of a text, which are made in one pass.
class PathHashes
{
public:
    explicit PathHashes(const QString &text)
        : m_fronts(text.size() + 1)
        , m_backs(text.size() + 1)
    {
        m_fronts[0] = m_backs[text.size()] = 0;
        for (int i = 0; i < text.size(); ++i)
            m_fronts[i + 1] = (m_fronts[i] + text.at(i).unicode() + 1) * FACTOR;
        for (int i = text.size(); i-- > 0;)
            m_backs[i] = (m_backs[i + 1] + text.at(i).unicode() + 1) * FACTOR;
    }

    /// Of the characters before `left`, and those before or from `right` on.
    quint64 twoFronts(int left, int right) const
    {
        return combined(m_fronts[left], m_fronts[right]);
    }
    quint64 frontAndBack(int left, int right) const
    {
        return combined(m_fronts[left], m_backs[right]);
    }

private:
    static constexpr quint64 FACTOR = 0x5851f42d4c957f2d;

    static quint64 combined(quint64 a, quint64 b)
    {
        const quint64 mixed = (a ^ (b * 0x9e3779b97f4a7c15)) * 0xff51afd7ed558ccd;
        return mixed ^ (mixed >> 32);
    }

    QVarLengthArray<quint64, 256> m_fronts;
    QVarLengthArray<quint64, 256> m_backs;
};

/// Numbers of things by their hashes. Things that share one are told apart by the caller.
class HashedNumbers
{
public:
    /// The number of the thing with that hash that `isIt` accepts; -1 without one.
    template<typename IsIt>
    int find(quint64 hash, const IsIt &isIt) const
    {
        for (auto it = m_numbers.find(hash); it != m_numbers.end(); it = m_numbers.find(++hash)) {
            if (isIt(it->second))
                return it->second;
        }
        return -1;
    }

    void add(quint64 hash, int number)
    {
        while (!m_numbers.emplace(hash, number).second)
            ++hash;
    }

private:
    std::unordered_map<quint64, int> m_numbers;
};

} // namespace Check
