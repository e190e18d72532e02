#pragma once

#include "check/activity/reference.h"
#include "check/activity/textpool.h"

#include <QString>

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Check {

/// The scopes and variables that an activity file declares. Names are without the leading backslash
/// of an escaped name. A signal is what values are given for: several variables may share one.
class Declarations
{
public:
    static constexpr quint32 NONE = 0xffffffff;
    static constexpr int MAXIMUM_DEPTH = 256;
    static constexpr qint64 MAXIMUM_BITS = 50000000;
    static constexpr qint64 MAXIMUM_WIDTH = 1 << 20;

    struct Scope
    {
        quint32 name;
        quint32 parent; ///< comes before it; NONE for the root
    };
    /// There may be millions.
    struct Variable
    {
        quint32 scope;
        quint32 name; ///< of its base, without bits
        quint32 signal;
        qint32 right; ///< number of the lowest bit
        quint32 width : 21;
        quint32 hasRange : 1;  ///< the numbers of its bits are given
        quint32 isUpwards : 1; ///< the lowest bit has the highest number
        quint32 isPacked : 1;  ///< has several dimensions; numbers are those of all bits
    };

    Declarations();

    /// Number of the scope called so in `parent`, a new one at its first appearance.
    quint32 scope(quint32 parent, std::string_view name);
    int depth(quint32 scope) const;

    /// False when there would be more than MAXIMUM_BITS, or too much text.
    bool addVariable(quint32 scope, const Reference &reference, qint64 width, quint32 signal);

    const std::vector<Scope> &scopes() const { return m_scopes; } ///< the root first
    const std::deque<Variable> &variables() const { return m_variables; }
    std::string_view name(const Scope &scope) const;
    std::string_view name(const Variable &variable) const;

    /// The dimensions of a packed array, by its number.
    const std::vector<BitRange> &dimensions(quint32 variable) const;

    /// The number that the bit `place` bits above the lowest has; its place without a range.
    static qint32 bitNumber(const Variable &variable, quint32 place);

    /// Names joined by "/"; empty for the root.
    QString path(quint32 scope) const;
    /// The first scope with that path; NONE when there is none.
    quint32 findScope(const QString &path) const;
    QString path(const Variable &variable, quint32 place) const;
    /// With its range as a whole: "tb/dut/count[7:0]".
    QString variablePath(quint32 variable) const;

    /// Bits have numbers: those of a signal follow each other, the lowest first.
    quint32 firstBit(quint32 signal) const { return m_firstBits[signal]; }
    quint32 widthOf(quint32 signal) const { return m_firstBits[signal + 1] - m_firstBits[signal]; }
    quint32 bits() const { return m_firstBits.back(); }
    quint32 signalCount() const { return quint32(m_firstBits.size() - 1); }
    qint64 declaredBits() const { return m_declaredBits; }

    /// Call after the last variable.
    void finish();

private:
    struct ScopeKey
    {
        quint32 parent;
        std::string name;
        bool operator==(const ScopeKey &o) const { return parent == o.parent && name == o.name; }
    };
    struct ScopeHash
    {
        size_t operator()(const ScopeKey &key) const
        {
            return std::hash<std::string>()(key.name) ^ (key.parent * size_t(0x9e3779b97f4a7c15));
        }
    };

    TextPool m_text;
    std::vector<Scope> m_scopes;
    std::unordered_map<ScopeKey, quint32, ScopeHash> m_byName;
    // These grow without a second copy.
    std::deque<Variable> m_variables;
    std::unordered_map<quint32, std::vector<BitRange>> m_packed; ///< by the variable's number
    std::deque<quint32> m_firstBits; ///< by signal: widths until finish(), and one more
    qint64 m_declaredBits = 0;
};

} // namespace Check
