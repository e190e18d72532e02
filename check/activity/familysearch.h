#pragma once

#include "check/activity/scopematch.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Check {

/// A scope and a node that are taken for the same, as far up as their names agree.
using Family = std::pair<quint32, quint32>;

/// Finds pairs that are worth a closer look, by names that few levels of the design have.
class FamilySearch
{
public:
    FamilySearch(const ActivityFile &file, const ScopeIndex &index, const DesignTree &design)
        : m_declarations(file.declarations)
        , m_index(index)
        , m_design(design)
    {
        const auto scopes = quint32(m_declarations.scopes().size());
        for (quint32 scope = 0; scope < scopes; ++scope)
            voteFor(scope, true);
        // Of names that are everywhere, such as those in an array of equal instances, a sample has
        // to do, and the names of the instances themselves.
        const quint32 stride = scopes / SAMPLES + 1;
        for (quint32 first = 0; first < stride; ++first) {
            for (quint32 scope = first; scope < scopes && m_votesLeft > 0; scope += stride)
                voteFor(scope, false);
        }
        for (quint32 scope = 0; scope < scopes && m_votesLeft <= 0; ++scope)
            voteForName(scope);
    }

    /// The most promising first.
    std::vector<Family> families() const
    {
        std::vector<std::pair<qint64, Family>> ordered;
        for (const auto &[family, weight] : m_votes)
            ordered.emplace_back(-weight, family);
        std::sort(ordered.begin(), ordered.end());
        std::vector<Family> families;
        families.reserve(ordered.size());
        for (const auto &[weight, family] : ordered)
            families.push_back(family);
        return families;
    }

private:
    static constexpr quint32 NONE = DesignTree::NONE;
    static constexpr size_t NAMES = 24;     ///< of a scope that are looked at
    static constexpr size_t VOTES = 4;      ///< names of it that vote
    static constexpr quint32 OWNERS = 4096; ///< levels that one name votes for
    static constexpr quint32 FEW = 16;      ///< levels whose names all vote
    static constexpr quint32 SAMPLES = 512; ///< scopes that vote first with other names
    static constexpr qint64 WEIGHT = 1 << 24;

    static std::string_view lastSegment(std::string_view name)
    {
        std::string_view last;
        forEachSegment(name, [&](std::string_view segment) { last = segment; });
        return last;
    }

    quint32 owners(std::string_view segment)
    {
        const quint32 first = m_design.firstCalled(segment);
        const auto [known, isNew] = m_owners.emplace(first, 0);
        for (quint32 node = first; isNew && node != NONE && known->second < OWNERS;
             node = m_design.nextCalled(node))
            known->second += m_design.firstVector(node) != NONE;
        return known->second;
    }

    /// The node above the name, when the name ends at `node`.
    quint32 above(quint32 node, std::string_view name) const
    {
        std::vector<std::string_view> segments;
        forEachSegment(name, [&](std::string_view segment) { segments.push_back(segment); });
        for (auto segment = segments.rbegin(); segment != segments.rend(); ++segment) {
            if (node == DesignTree::ROOT || m_design.segment(node) != *segment)
                return NONE;
            node = m_design.parent(node);
        }
        return node;
    }

    Family family(quint32 scope, quint32 node) const
    {
        while (m_declarations.scopes()[scope].parent != NONE) {
            const quint32 higher = above(node, m_declarations.name(m_declarations.scopes()[scope]));
            if (higher == NONE)
                break;
            node = higher;
            scope = m_declarations.scopes()[scope].parent;
        }
        return {scope, node};
    }

    /// With the names of few levels, or with the others.
    void voteFor(quint32 scope, bool withFew)
    {
        std::vector<std::pair<quint32, std::string_view>> names;
        for (const quint32 variable : m_index.variables(scope)) {
            const std::string_view name = m_declarations.name(m_declarations.variables()[variable]);
            const quint32 count = owners(lastSegment(name));
            if (count > 0)
                names.emplace_back(count, name);
            if (names.size() == NAMES)
                break;
        }
        std::sort(names.begin(), names.end());
        names.resize(qMin(names.size(), VOTES));
        for (const auto &[count, name] : names) {
            if ((count <= FEW) != withFew)
                continue;
            m_votesLeft -= withFew ? 0 : count;
            quint32 left = OWNERS;
            for (quint32 node = m_design.firstCalled(lastSegment(name)); node != NONE && left > 0;
                 node = m_design.nextCalled(node)) {
                if (m_design.firstVector(node) == NONE)
                    continue;
                --left;
                const quint32 owner = above(node, name);
                if (owner != NONE)
                    m_votes[family(scope, owner)] += WEIGHT / count;
            }
        }
    }

    void voteForName(quint32 scope)
    {
        const auto segment = lastSegment(m_declarations.name(m_declarations.scopes()[scope]));
        std::vector<quint32> nodes;
        for (quint32 node = m_design.firstCalled(segment); node != NONE && nodes.size() <= FEW;
             node = m_design.nextCalled(node)) {
            if (m_design.scopeAt(node) != NONE)
                nodes.push_back(node);
        }
        for (const quint32 node : nodes) {
            if (nodes.size() <= FEW)
                m_votes[family(scope, node)] += WEIGHT / qint64(nodes.size());
        }
    }

    const Declarations &m_declarations;
    const ScopeIndex &m_index;
    const DesignTree &m_design;
    std::map<Family, qint64> m_votes;
    qint64 m_votesLeft = 1 << 20;                  ///< of names that many levels have
    std::unordered_map<quint32, quint32> m_owners; ///< by the first node called so
};

} // namespace Check
