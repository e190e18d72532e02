// What coverage is counted in.

#include "check/activity/scoperanking.h"

namespace Check {

namespace {

constexpr double COMPLETE = 0.8;
constexpr double PART = 0.1; ///< what covers less does not fit at all

quint32 sumOf(const std::array<quint32, NET_KINDS> &counts, bool onlySources)
{
    quint32 sum = 0;
    for (const NetKind kind : ALL_NET_KINDS) {
        const bool isSource =
            kind == NetKind::Input || kind == NetKind::FlipFlop || kind == NetKind::Memory;
        if (!onlySources || isSource)
            sum += counts[size_t(kind)];
    }
    return sum;
}

/// Nothing but all is 100 %.
int percent(quint32 covered, quint32 nets)
{
    return covered == nets ? 100 : qMin(99, qRound(100.0 * covered / nets));
}

QString share(const char *what, quint32 covered, quint32 nets)
{
    return QStringLiteral("%1 %2 of %3 (%4 %)")
        .arg(QLatin1String(what), QString::number(covered), QString::number(nets),
             QString::number(percent(covered, nets)));
}

} // namespace

quint32 KindCounts::coveredNets() const
{
    return sumOf(covered, false);
}

quint32 KindCounts::allNets() const
{
    return sumOf(nets, false);
}

quint32 KindCounts::coveredSources() const
{
    return sumOf(covered, true);
}

quint32 KindCounts::allSources() const
{
    return sumOf(nets, true);
}

QString KindCounts::headline() const
{
    const auto logic = size_t(NetKind::Logic);
    return share("sources", coveredSources(), allSources()) + QStringLiteral(", ") +
           share("logic", covered[logic], nets[logic]);
}

bool ScopeCandidate::isComplete() const
{
    quint32 covered = counts.coveredSources();
    quint32 nets = counts.allSources();
    if (nets == 0) { // combinational
        covered = counts.coveredNets();
        nets = counts.allNets();
    }
    return nets > 0 && covered >= COMPLETE * nets;
}

bool ScopeCandidate::isPart() const
{
    return counts.coveredNets() > 0 && counts.coveredNets() >= PART * counts.allNets();
}

} // namespace Check
