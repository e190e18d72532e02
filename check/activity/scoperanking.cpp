#include "check/activity/scoperanking.h"

#include "check/activity/familysearch.h"

#include <algorithm>

namespace Check {

namespace {

constexpr quint32 NONE = DesignTree::NONE;
constexpr int UNMATCHED = 5;

/// Measures pairs.
class Measure
{
public:
    Measure(const ActivityFile &file, const ScopeIndex &index, const DesignTree &design)
        : m_match(file, index, design)
        , m_design(design)
        , m_covered(design.netCount(), 0)
        , m_seen(design.netCount(), 0)
    {
    }

    const ScopeMatch &match() const { return m_match; }
    void addWork(size_t steps) { m_work += steps; }
    quint64 work() const { return m_work; }
    bool isCovered(quint32 net) const { return m_covered[net] == m_coverTurn; }

    /// Finds what the pair covers, for count().
    VariableCounts cover(quint32 scope, quint32 node)
    {
        ++m_coverTurn;
        const VariableCounts counts = m_match.descend(scope, node, [this](const MatchedBit &bit) {
            m_covered[bit.net] = m_coverTurn;
            ++m_work;
        });
        m_work += counts.used + counts.unused;
        return counts;
    }

    /// Nets in an instance and below, and what the last pair covers of them.
    KindCounts count(quint32 instance)
    {
        KindCounts counts;
        forEachNet(instance, [&](quint32 net) {
            ++counts.nets[size_t(m_design.kind(net))];
            counts.covered[size_t(m_design.kind(net))] += isCovered(net);
        });
        return counts;
    }

    /// The pair with what it covers.
    ScopeCandidate candidate(quint32 scope, quint32 instance)
    {
        ScopeCandidate candidate;
        candidate.scope = scope;
        candidate.instance = instance;
        candidate.variables = cover(scope, m_design.scopes()[instance].node);
        candidate.counts = count(instance);
        return candidate;
    }

    template<typename Use>
    void forEachNet(quint32 instance, const Use &use)
    {
        ++m_seenTurn;
        const quint32 end = m_design.vectorEnd(instance);
        for (quint32 i = m_design.scopes()[instance].firstVector; i < end; ++i) {
            const DesignTree::Vector &vector = m_design.vector(i);
            for (quint32 place = 0; place < vector.count; ++place) {
                const quint32 net = m_design.net(vector, place);
                ++m_work;
                if (net >= m_design.netCount() || m_seen[net] == m_seenTurn)
                    continue;
                m_seen[net] = m_seenTurn;
                use(net);
            }
        }
    }

private:
    const ScopeMatch m_match;
    const DesignTree &m_design;
    std::vector<quint32> m_covered; ///< turn in which the net was covered
    std::vector<quint32> m_seen;
    quint32 m_coverTurn = 0;
    quint32 m_seenTurn = 0;
    quint64 m_work = 0;
};

class Ranker
{
public:
    Ranker(const ActivityFile &file, const DesignTree &design)
        : m_file(file)
        , m_design(design)
        , m_index(file.declarations)
        , m_measure(file, m_index, design)
        , m_families(FamilySearch(file, m_index, design).families())
        , m_limit(8 * (quint64(design.netCount()) + quint64(file.declarations.variables().size())) +
                  (1 << 20))
    {
    }

    ScopeRanking rank()
    {
        // Enough for every family of a small file, and for the best of a large one.
        const quint64 limit =
            8 * (quint64(m_design.netCount()) + quint64(m_file.declarations.variables().size())) +
            (1 << 20);
        for (m_family = 0; m_family < m_families.size() && m_measure.work() < limit; ++m_family)
            rankFamily(m_families[m_family]);
        order();
        judge();
        if (m_ranking.verdict != ScopeVerdict::Fits)
            findUnmatched();
        return m_ranking;
    }

    ScopeCandidate best(quint32 instance)
    {
        ScopeCandidate best;
        best.instance = instance;
        const quint32 node = m_design.scopes()[instance].node;
        for (const auto &[scope, above] : m_families) {
            const quint32 found = m_measure.match().follow(scope, above, node);
            if (found == NONE)
                continue;
            ScopeCandidate candidate = candidateOf(found, instance);
            if (candidate.counts.coveredNets() > best.counts.coveredNets())
                best = candidate;
            if (best.isComplete())
                break;
        }
        return best;
    }

private:
    ScopeCandidate candidateOf(quint32 scope, quint32 instance)
    {
        ScopeCandidate candidate = m_measure.candidate(scope, instance);
        candidate.family = int(m_family);
        return candidate;
    }

    /// The pair itself, or the highest ones that follow from it and are complete.
    void rankFamily(const Family &family)
    {
        const auto [scope, node] = family;
        const quint32 instance = m_design.scopeAt(node);
        if (instance == NONE) {
            for (quint32 inner = 0; inner < m_design.scopes().size(); ++inner) {
                if (m_design.parent(m_design.scopes()[inner].node) == node)
                    rankBelow(scope, node, inner);
            }
            return;
        }
        ScopeCandidate candidate = candidateOf(scope, instance);
        if (candidate.counts.coveredNets() == 0)
            return;
        m_ranking.candidates.append(candidate);
        if (candidate.isComplete())
            return;
        const quint32 end = m_design.scopes()[instance].end;
        for (quint32 inner = instance + 1; inner < end; inner = m_design.scopes()[inner].end)
            rankBelow(scope, node, inner);
    }

    void rankBelow(quint32 scope, quint32 above, quint32 instance)
    {
        const quint32 node = m_design.scopes()[instance].node;
        m_measure.addWork(m_index.scopes(scope).end() - m_index.scopes(scope).begin());
        if (m_measure.work() > m_limit)
            return;
        const quint32 found = m_measure.match().follow(scope, above, node);
        if (found == NONE)
            return;
        const ScopeCandidate candidate = candidateOf(found, instance);
        if (candidate.isComplete()) {
            m_ranking.candidates.append(candidate);
            return;
        }
        const quint32 end = m_design.scopes()[instance].end;
        for (quint32 inner = instance + 1; inner < end; inner = m_design.scopes()[inner].end)
            rankBelow(found, node, inner);
    }

    /// What is complete first, unless something else covers much more.
    void order()
    {
        quint32 most[2] = {0, 0};
        for (const ScopeCandidate &candidate : qAsConst(m_ranking.candidates)) {
            quint32 &covered = most[candidate.isComplete()];
            covered = qMax(covered, candidate.counts.coveredNets());
        }
        const bool isCompleteFirst = 2 * most[true] >= most[false];
        std::stable_sort(
            m_ranking.candidates.begin(), m_ranking.candidates.end(),
            [&](const ScopeCandidate &a, const ScopeCandidate &b) {
                return std::pair(a.isComplete() != isCompleteFirst, b.counts.coveredNets()) <
                       std::pair(b.isComplete() != isCompleteFirst, a.counts.coveredNets());
            });
    }

    void judge()
    {
        if (m_ranking.candidates.isEmpty())
            return;
        const ScopeCandidate &best = m_ranking.candidates.first();
        const quint32 covered = best.counts.coveredNets();
        quint32 rival = 0;
        m_ranking.equals = 1;
        for (int i = 1; i < m_ranking.candidates.size(); ++i) {
            const ScopeCandidate &other = m_ranking.candidates.at(i);
            if (other.family == best.family)
                continue;
            const bool isEqual = other.isComplete() && other.counts.coveredNets() == covered;
            if (isEqual && i == m_ranking.equals)
                ++m_ranking.equals;
            rival = qMax(rival, other.counts.coveredNets());
        }
        if (best.isComplete() && m_ranking.equals > 1)
            m_ranking.verdict = ScopeVerdict::FitsSeveral;
        else if (best.isComplete() && covered >= 2 * rival)
            m_ranking.verdict = ScopeVerdict::Fits;
        else if (best.isPart())
            m_ranking.verdict = ScopeVerdict::FitsInPart;
    }

    void findUnmatched()
    {
        const bool hasBest = !m_ranking.candidates.isEmpty();
        const quint32 scope = hasBest ? m_ranking.candidates.first().scope : 0;
        const quint32 instance = hasBest ? m_ranking.candidates.first().instance : 0;
        const quint32 node = m_design.scopes()[instance].node;
        m_measure.cover(scope, node);
        const auto &declarations = m_file.declarations;
        m_measure.match().descend(
            scope, node, [](const MatchedBit &) {},
            [&](quint32 variable) {
                if (m_ranking.unmatchedVariables.size() < UNMATCHED)
                    m_ranking.unmatchedVariables.append(declarations.variablePath(variable));
            });
        m_measure.forEachNet(instance, [&](quint32 net) {
            if (!m_measure.isCovered(net) && m_ranking.unmatchedNets.size() < UNMATCHED)
                m_ranking.unmatchedNets.append(m_design.netPath(net));
        });
    }

    const ActivityFile &m_file;
    const DesignTree &m_design;
    const ScopeIndex m_index;
    Measure m_measure;
    const std::vector<Family> m_families;
    /// Work for every family of a small file, and for the best of a large one.
    const quint64 m_limit;
    size_t m_family = 0;
    ScopeRanking m_ranking;
};

} // namespace

QString ScopeRanking::verdictText() const
{
    switch (verdict) {
    case ScopeVerdict::Fits:
        return QStringLiteral("fits");
    case ScopeVerdict::FitsSeveral:
        return QStringLiteral("fits %1 instances equally").arg(equals);
    case ScopeVerdict::FitsInPart:
        return QStringLiteral("fits in part");
    default:
        return QStringLiteral("does not fit");
    }
}

ScopeRanking rankScopes(const ActivityFile &file, const DesignTree &design)
{
    return Ranker(file, design).rank();
}

ScopeCandidate scopeFor(const ActivityFile &file, const DesignTree &design, quint32 instance,
                        const QString *known)
{
    const quint32 scope = known ? file.declarations.findScope(*known) : NONE;
    if (scope != NONE) {
        const ScopeIndex index(file.declarations);
        const ScopeCandidate candidate = Measure(file, index, design).candidate(scope, instance);
        if (candidate.isComplete())
            return candidate;
    }
    return Ranker(file, design).best(instance);
}

} // namespace Check
