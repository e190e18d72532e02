#pragma once

#include "check/activity/scopematch.h"

#include <QStringList>
#include <QVector>

#include <array>

namespace Check {

/// Nets by kind: how many have activity from a file, and how many there are.
struct KindCounts
{
    std::array<quint32, NET_KINDS> covered{};
    std::array<quint32, NET_KINDS> nets{};

    quint32 coveredNets() const;
    quint32 allNets() const;
    /// The same for inputs, flip-flops and memories: what logic and pads follow from.
    quint32 coveredSources() const;
    quint32 allSources() const;
    /// "sources 8 of 10 (80 %), logic 5 of 20 (25 %)".
    QString headline() const;
};

/// A scope of a file taken for an instance of the design.
struct ScopeCandidate
{
    quint32 scope = 0;    ///< of the file
    quint32 instance = 0; ///< scope of the design
    KindCounts counts;    ///< nets in that instance and below
    VariableCounts variables;
    int family = 0; ///< candidates that follow from each other have the same

    /// Whether the registers, memories and inputs are covered to 80 %.
    bool isComplete() const;
    /// Whether it covers enough not to be chance.
    bool isPart() const;
};

enum class ScopeVerdict { Fits, FitsSeveral, FitsInPart, DoesNotFit };

/// How a file can be bound to a design.
struct ScopeRanking
{
    ScopeVerdict verdict = ScopeVerdict::DoesNotFit;
    QVector<ScopeCandidate> candidates; ///< the best first
    int equals = 0;                     ///< candidates from the first on that fit equally

    /// Five names of each side that the best candidate does not cover.
    QStringList unmatchedVariables;
    QStringList unmatchedNets;

    /// "fits", "fits 3 instances equally", "fits in part" or "does not fit".
    QString verdictText() const;
};

/// Ranks the scopes of a file.
ScopeRanking rankScopes(const ActivityFile &file, const DesignTree &design);

/// The scope of a file that covers most of an instance of the design, with what it covers; the
/// counts are 0 when none covers anything. `known` is the path of a scope that was found before: as
/// long as it fits, no other one is looked for. Null: none was.
ScopeCandidate scopeFor(const ActivityFile &file, const DesignTree &design, quint32 instance,
                        const QString *known = nullptr);

} // namespace Check
