#pragma once

#include "check/activity/scoperanking.h"
#include "check/activity/togglecounter.h"
#include "check/designinput.h"

#include <optional>

namespace NlsData {
class ReadControl;
}
namespace VLT {
struct Configuration;
struct VLT_VcdFile;
} // namespace VLT

namespace Check {

class DesignNames;
class ToggleStore;

/// Where the rate of a net comes from.
enum class NetSource : quint8 { Rate, File, DefaultIo, DefaultRest, Constant };
constexpr int NET_SOURCES = 5;
constexpr NetSource ALL_NET_SOURCES[NET_SOURCES] = {NetSource::Rate, NetSource::File,
                                                    NetSource::DefaultIo, NetSource::DefaultRest,
                                                    NetSource::Constant};

QString
netSourceName(NetSource source); ///< "rate", "file", "default-io", "default-rest", "constant"

/// Whether a net with that source is not covered.
constexpr bool isDefault(NetSource source)
{
    return source == NetSource::DefaultIo || source == NetSource::DefaultRest;
}

/// An activity file of a configuration, and what it covers.
struct CoveringFile
{
    std::shared_ptr<const ActivityFile> file;
    quint32 instance = DesignTree::NONE; ///< that it is bound to; NONE when there is no such one
    ScopeCandidate scope;                ///< that was found for it; without nets when none was
    TimeWindow window;
    ToggleCounts counts;   ///< when toggles were asked for
    quint32 nets = 0;      ///< that it gives a rate to
    QStringList isStatic;  ///< flip-flops that never toggle, when toggles were asked for
    QStringList isUnknown; ///< nets that are x or z for some time, likewise
};

/// A file is bound to an instance that it does not fit.
struct ScopeMisfit
{
    QString proposal; ///< instance that it fits, as records name it; empty when there is none
    QString headline; ///< what it covers of that one
};

/// Whether a file fits its instance badly, or another one well. Nothing when it does not.
std::optional<ScopeMisfit> scopeMisfit(const CoveringFile &covering, const DesignTree &design,
                                       const DesignNames &names);

/// Nets of an instance, by kind and source.
struct InstanceCoverage
{
    KindCounts kinds; ///< covered: not left to a default
    std::array<quint32, NET_SOURCES> sources{};
    quint64 toggles = 0;

    InstanceCoverage &operator+=(const InstanceCoverage &other);
};

/// Where the rate of every net of a design comes from.
class Coverage
{
public:
    struct Net
    {
        NetSource source = NetSource::DefaultRest;
        bool overlaps = false; ///< has a rate and a file, or two files
        bool isClock = false;
        qint32 file = -1; ///< the first one that covers it
        qint32 lastFile = -1;
        quint32 signal = 0;
        quint32 place = 0;
        qint32 rate = -1; ///< record of its rate
    };

    const std::vector<Net> &nets() const { return m_nets; }
    const std::vector<CoveringFile> &files() const { return m_files; }
    /// By scope of the design: its own nets, and those with what is inside.
    const std::vector<InstanceCoverage> &own() const { return m_own; }
    const std::vector<InstanceCoverage> &whole() const { return m_whole; }
    quint32 overlaps() const { return m_overlaps; }
    quint32 clocks() const { return m_clocks; }
    bool hasToggles() const { return m_hasToggles; }

    /// What the net does according to its file; null when that is not known.
    const BitActivity *activity(quint32 net) const;

    /// Records of rates whose names are no nets.
    const QVector<int> &unresolvedRates() const { return m_unresolvedRates; }

    /// The scopes that fit, for one who asks again.
    KnownScopes foundScopes(const DesignTree &design) const;

    /// Paths of the nets that are left to a default.
    QStringList uncovered(const DesignTree &design) const;

private:
    friend class CoverageBuilder;

    std::vector<Net> m_nets;
    std::vector<CoveringFile> m_files;
    std::vector<InstanceCoverage> m_own;
    std::vector<InstanceCoverage> m_whole;
    QVector<int> m_unresolvedRates;
    quint32 m_overlaps = 0;
    quint32 m_clocks = 0;
    bool m_hasToggles = false;
};

struct CoverageOptions
{
    bool toggles = false;                    ///< read the values of the files, too
    bool onlyKept = false;                   ///< toggles only when the store has all of them
    NlsData::ReadControl *control = nullptr; ///< borrowed; may be null. Ends the counting early
    ToggleStore *store = nullptr;            ///< likewise
    const KnownScopes *scopes = nullptr;     ///< likewise
};

/// Computes what covers a design. `path` is that of the configuration: relative paths in it are
/// looked for in its folder. When `control` is cancelled, the result is not complete.
Coverage computeCoverage(const VLT::Configuration &configuration, const QString &path,
                         const DesignTree &design, const DesignNames &names,
                         const CoverageOptions &options = {});

/// Where the file of a record is, for a configuration at `path`.
QString activityPath(const VLT::VLT_VcdFile &record, const QString &path);

/// The record's window in ticks of the file; all of the file as far as it gives no time.
TimeWindow windowOf(const VLT::VLT_VcdFile &record, const ActivityFile &file);

} // namespace Check
