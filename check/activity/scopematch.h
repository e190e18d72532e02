#pragma once

#include "check/activity/activityfile.h"
#include "check/activity/designtree.h"

#include <functional>

namespace Check {

/// What is in the scopes of an activity file, level by level.
class ScopeIndex
{
public:
    explicit ScopeIndex(const Declarations &declarations);

    struct Range
    {
        const quint32 *first;
        const quint32 *last;
        const quint32 *begin() const { return first; }
        const quint32 *end() const { return last; }
    };
    Range scopes(quint32 scope) const { return range(m_firstScopes, m_scopes, scope); }
    Range variables(quint32 scope) const { return range(m_firstVariables, m_variables, scope); }

private:
    static Range range(const std::vector<quint32> &firsts, const std::vector<quint32> &all,
                       quint32 scope)
    {
        return {all.data() + firsts[scope], all.data() + firsts[scope + 1]};
    }

    std::vector<quint32> m_firstScopes;
    std::vector<quint32> m_scopes;
    std::vector<quint32> m_firstVariables;
    std::vector<quint32> m_variables;
};

/// A bit of a file that is a net of the design.
struct MatchedBit
{
    quint32 net;
    quint32 variable;
    quint32 place; ///< from the lowest bit
};

/// How many variables are names of the design, and how many are not.
struct VariableCounts
{
    quint64 used = 0;
    quint64 unused = 0;
};

/// Compares a file with a design, from a scope and a node that are taken for the same on.
class ScopeMatch
{
public:
    /// All are borrowed.
    ScopeMatch(const ActivityFile &file, const ScopeIndex &index, const DesignTree &design)
        : m_declarations(file.declarations)
        , m_index(index)
        , m_design(design)
    {
    }

    using Use = std::function<void(const MatchedBit &)>;

    /// Calls `use` with every bit below `scope` that is a net below `node`. `unmatched` is called
    /// with each variable that is none, and may be empty.
    VariableCounts descend(quint32 scope, quint32 node, const Use &use,
                           const std::function<void(quint32 variable)> &unmatched = {}) const;

    /// The scope below `scope` that corresponds to `node` when `scope` does to `above`; NONE when
    /// there is none.
    quint32 follow(quint32 scope, quint32 above, quint32 node) const;

private:
    bool match(quint32 number, quint32 above, const Use &use) const;
    bool matchPacked(quint32 number, quint32 above, const Use &use) const;
    bool matchBit(const Declarations::Variable &variable, quint32 place, quint32 node,
                  quint32 *net) const;
    bool hasBit(const Declarations::Variable &variable, quint32 place,
                const DesignTree::Vector &vector, quint32 *net) const;
    bool isLiteral(const Declarations::Variable &variable, const DesignTree::Vector &vector) const;

    const Declarations &m_declarations;
    const ScopeIndex &m_index;
    const DesignTree &m_design;
};

} // namespace Check
