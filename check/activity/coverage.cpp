#include "check/activity/coverage.h"

#include "check/activity/togglestore.h"
#include "check/names/designnames.h"
#include "config/configuration.h"

#include "host/nlsdata/readcontrol.h"
#include "host/utils/documentpath.h"
#include "nlsdata/netlist.h"

#include <QDir>
#include <QFileInfo>

namespace Check {

namespace {

/// Progress of files one after the other as that of all of them.
class PartControl : public NlsData::ReadControl
{
public:
    /// `whole` is borrowed and may be null.
    PartControl(NlsData::ReadControl *whole, qint64 bytes)
        : m_whole(whole)
        , m_bytes(qMax<qint64>(1, bytes))
    {
    }

    void begin(qint64 size)
    {
        m_done += m_size;
        m_size = size;
    }

    void report(int permille) override
    {
        if (m_whole)
            m_whole->report(int((m_done * 1000.0 + double(m_size) * permille) / m_bytes));
    }

private:
    NlsData::ReadControl *const m_whole;
    const qint64 m_bytes;
    qint64 m_done = 0;
    qint64 m_size = 0;
};

} // namespace

class CoverageBuilder
{
public:
    CoverageBuilder(const VLT::Configuration &configuration, const QString &path,
                    const DesignTree &design, const DesignNames &names,
                    const CoverageOptions &options)
        : m_configuration(configuration)
        , m_path(path)
        , m_design(design)
        , m_names(names)
        , m_options(options)
    {
        m_coverage.m_nets.resize(design.netCount());
        m_coverage.m_hasToggles = options.toggles;
    }

    Coverage build()
    {
        const auto &rates = m_configuration.rates.records;
        for (int i = 0; i < rates.size(); ++i) {
            if (Coverage::Net *net = find(rates.at(i).name))
                net->rate = i;
            else
                m_coverage.m_unresolvedRates.append(i);
        }
        for (const VLT::VLT_ClkEnable &clock : m_configuration.clocks.records) {
            if (Coverage::Net *net = find(clock.name))
                net->isClock = true;
        }
        const auto &files = m_configuration.files.records;
        m_coverage.m_files.resize(size_t(files.size()));
        for (int i = 0; i < files.size(); ++i)
            addFile(files.at(i), i);
        for (quint32 net = 0; net < m_design.netCount(); ++net)
            decide(net);
        if (m_options.toggles)
            countFiles();
        sumUp();
        return std::move(m_coverage);
    }

private:
    Coverage::Net *find(const QString &name)
    {
        const NlsData::Net *net = m_names.nets().find(name);
        if (!net || net->path() != name)
            return nullptr;
        return &m_coverage.m_nets[m_names.nets().number(net)];
    }

    /// Null when none was found before.
    const QString *knownScope(const CoveringFile &covering) const
    {
        if (!m_options.scopes || m_options.scopes->isEmpty())
            return nullptr;
        const auto known = m_options.scopes->constFind(
            {Utils::documentPath(covering.file->path), m_design.path(covering.instance)});
        return known == m_options.scopes->constEnd() ? nullptr : &*known;
    }

    void addFile(const VLT::VLT_VcdFile &record, int number)
    {
        CoveringFile &covering = m_coverage.m_files[size_t(number)];
        covering.file = readActivityFile(activityPath(record, m_path), m_options.toggles);
        const bool isDesign = record.entity.isEmpty() || record.entity == m_names.design();
        covering.instance = isDesign ? 0 : m_design.findScope(record.entity);
        if (!covering.file->isUsable() || covering.instance == DesignTree::NONE)
            return;
        covering.window = windowOf(record, *covering.file);
        covering.scope =
            scopeFor(*covering.file, m_design, covering.instance, knownScope(covering));
        if (covering.scope.counts.coveredNets() == 0)
            return;
        const ScopeIndex index(covering.file->declarations);
        const auto &variables = covering.file->declarations.variables();
        std::vector<bool> isSeen(m_design.netCount(), false);
        ScopeMatch(*covering.file, index, m_design)
            .descend(covering.scope.scope, m_design.scopes()[covering.instance].node,
                     [&](const MatchedBit &bit) {
                         if (isSeen[bit.net])
                             return;
                         isSeen[bit.net] = true;
                         Coverage::Net &net = m_coverage.m_nets[bit.net];
                         net.overlaps = net.overlaps || net.file >= 0;
                         net.lastFile = number;
                         if (net.file >= 0)
                             return;
                         net.file = number;
                         net.signal = variables.at(int(bit.variable)).signal;
                         net.place = bit.place;
                     });
    }

    void decide(quint32 number)
    {
        Coverage::Net &net = m_coverage.m_nets[number];
        net.overlaps = net.overlaps || (net.rate >= 0 && net.file >= 0);
        net.source = m_design.isConstant(number)    ? NetSource::Constant
                     : net.rate >= 0                ? NetSource::Rate
                     : net.file >= 0                ? NetSource::File
                     : m_design.isFromInput(number) ? NetSource::DefaultIo
                                                    : NetSource::DefaultRest;
        if (net.source == NetSource::File)
            ++m_coverage.m_files[size_t(net.file)].nets;
        m_coverage.m_overlaps += net.overlaps;
        m_coverage.m_clocks += net.isClock;
    }

    /// The signals of a file that nets take their activity from.
    std::vector<bool> wanted(size_t number) const
    {
        const auto &file = *m_coverage.m_files[number].file;
        std::vector<bool> wanted(file.declarations.signalCount(), false);
        for (const Coverage::Net &net : m_coverage.m_nets) {
            if (net.file == int(number))
                wanted[net.signal] = true;
        }
        return wanted;
    }

    void countFiles()
    {
        ToggleStore own;
        ToggleStore *store = m_options.store ? m_options.store : &own;
        qint64 bytes = 0;
        for (size_t i = 0; i < m_coverage.m_files.size(); ++i) {
            const CoveringFile &covering = m_coverage.m_files[i];
            if (!covering.file->isUsable())
                continue;
            bytes += QFileInfo(covering.file->path).size();
            if (m_options.onlyKept && !store->find(*covering.file, wanted(i), covering.window)) {
                m_coverage.m_hasToggles = false;
                return;
            }
        }
        PartControl control(m_options.control, bytes);
        for (size_t i = 0; i < m_coverage.m_files.size(); ++i) {
            CoveringFile &covering = m_coverage.m_files[i];
            if (!covering.file->isUsable())
                continue;
            control.begin(QFileInfo(covering.file->path).size());
            covering.counts = store->count(*covering.file, wanted(i), covering.window, &control);
        }
        listActivity();
    }

    void listActivity()
    {
        for (quint32 number = 0; number < m_design.netCount(); ++number) {
            const BitActivity *activity = m_coverage.activity(number);
            if (!activity)
                continue;
            CoveringFile &covering = m_coverage.m_files[size_t(m_coverage.m_nets[number].file)];
            if (activity->toggles == 0 && m_design.kind(number) == NetKind::FlipFlop)
                covering.isStatic.append(m_design.netPath(number));
            if (activity->unknown > 0)
                covering.isUnknown.append(m_design.netPath(number));
        }
    }

    void sumUp()
    {
        const auto &scopes = m_design.scopes();
        m_coverage.m_own.resize(scopes.size());
        for (quint32 number = 0; number < m_design.netCount(); ++number) {
            const NetSource source = m_coverage.m_nets[number].source;
            InstanceCoverage &own = m_coverage.m_own[m_design.scopeOf(number)];
            const auto kind = size_t(m_design.kind(number));
            ++own.kinds.nets[kind];
            own.kinds.covered[kind] += !isDefault(source);
            ++own.sources[size_t(source)];
            if (const BitActivity *activity = m_coverage.activity(number))
                own.toggles += activity->toggles;
        }
        m_coverage.m_whole = m_coverage.m_own;
        for (size_t i = scopes.size(); i-- > 1;) // what is inside comes behind
            m_coverage.m_whole[scopes[i].parent] += m_coverage.m_whole[i];
    }

    const VLT::Configuration &m_configuration;
    const QString m_path;
    const DesignTree &m_design;
    const DesignNames &m_names;
    const CoverageOptions m_options;
    Coverage m_coverage;
};

QString netSourceName(NetSource source)
{
    static const char *const names[NET_SOURCES] = {"rate", "file", "default-io", "default-rest",
                                                   "constant"};
    return QLatin1String(names[int(source)]);
}

std::optional<ScopeMisfit> scopeMisfit(const CoveringFile &covering, const DesignTree &design,
                                       const DesignNames &names)
{
    if (!covering.file->isUsable() || covering.instance == DesignTree::NONE ||
        covering.scope.isComplete())
        return {};
    const ScopeRanking ranking = rankScopes(*covering.file, design);
    if (ranking.verdict == ScopeVerdict::Fits &&
        ranking.candidates.first().instance != covering.instance) {
        const ScopeCandidate &best = ranking.candidates.first();
        return ScopeMisfit{best.instance == 0 ? names.design() : design.path(best.instance),
                           best.counts.headline()};
    }
    if (covering.scope.counts.coveredNets() > 0 && covering.scope.isPart())
        return {};
    return ScopeMisfit();
}

InstanceCoverage &InstanceCoverage::operator+=(const InstanceCoverage &other)
{
    for (size_t i = 0; i < NET_KINDS; ++i) {
        kinds.covered[i] += other.kinds.covered[i];
        kinds.nets[i] += other.kinds.nets[i];
    }
    for (size_t i = 0; i < NET_SOURCES; ++i)
        sources[i] += other.sources[i];
    toggles += other.toggles;
    return *this;
}

const BitActivity *Coverage::activity(quint32 number) const
{
    const Net &net = m_nets[number];
    if (!m_hasToggles || net.file < 0 || !m_files[size_t(net.file)].counts.error.isEmpty())
        return nullptr;
    return m_files[size_t(net.file)].counts.bit(net.signal, net.place);
}

KnownScopes Coverage::foundScopes(const DesignTree &design) const
{
    KnownScopes scopes;
    for (const CoveringFile &covering : m_files) {
        if (covering.scope.isComplete())
            scopes.insert(
                {Utils::documentPath(covering.file->path), design.path(covering.instance)},
                covering.file->declarations.path(covering.scope.scope));
    }
    return scopes;
}

QStringList Coverage::uncovered(const DesignTree &design) const
{
    QStringList paths;
    for (quint32 net = 0; net < m_nets.size(); ++net) {
        if (isDefault(m_nets[net].source))
            paths.append(design.netPath(net));
    }
    return paths;
}

QString activityPath(const VLT::VLT_VcdFile &record, const QString &path)
{
    // As given where it is not relative: reports are the same everywhere.
    return QFileInfo(record.file).isRelative()
               ? QDir::cleanPath(QFileInfo(path).dir().filePath(record.file))
               : record.file;
}

TimeWindow windowOf(const VLT::VLT_VcdFile &record, const ActivityFile &file)
{
    TimeWindow window;
    if (file.kind == FileKind::Vcd) {
        window.start = ticksOf(record.startTime, record.timeUnit, file.timescale).value_or(0);
        window.end = ticksOf(record.endTime, record.timeUnit, file.timescale).value_or(window.end);
    }
    return window;
}

Coverage computeCoverage(const VLT::Configuration &configuration, const QString &path,
                         const DesignTree &design, const DesignNames &names,
                         const CoverageOptions &options)
{
    return CoverageBuilder(configuration, path, design, names, options).build();
}

} // namespace Check
