#include "check/activity/coverage.h"
#include "check/rules/rules.h"

#include "config/filenames.h"

#include "nlsdata/netlist.h"

#include <QDateTime>
#include <QFileInfo>

namespace Check {

namespace {

constexpr int LISTED = 5;

QString listed(const QStringList &names)
{
    return QStringList(names.mid(0, LISTED)).join(QLatin1String(", ")) +
           (names.size() > LISTED ? QStringLiteral(" …") : QString());
}

/// The rules about one activity file.
class FileCheck
{
public:
    FileCheck(const VLT::VLT_VcdFile &record, const RecordPlace &place, Findings *findings)
        : m_record(record)
        , m_place(place)
        , m_findings(findings)
    {
    }

    /// False when there is nothing in the file to go on with.
    bool checkKind(const ActivityFile &file)
    {
        const FileKind expected = m_record.isVcd ? FileKind::Vcd : FileKind::Saif;
        if (!file.isUsable())
            add("file-kind", QStringLiteral("the activity file \"%1\" cannot be used: %2")
                                 .arg(m_record.file, file.error));
        else if (file.kind != expected)
            add("file-kind",
                QStringLiteral("the activity file \"%1\" is listed as %2 and is %3")
                    .arg(m_record.file, fileKindName(expected), fileKindName(file.kind)));
        if (file.isUsable() && file.cutAt >= 0)
            add("file-truncated", QStringLiteral("the activity file \"%1\" is cut off at byte %2")
                                      .arg(m_record.file, QString::number(file.cutAt)));
        return file.isUsable();
    }

    void checkAge(const ActivityFile &file, const QString &netlist)
    {
        if (!netlist.isEmpty() &&
            QFileInfo(file.path).lastModified() < QFileInfo(netlist).lastModified())
            add("file-older", QStringLiteral("the activity file \"%1\" is older than the netlist")
                                  .arg(m_record.file));
    }

    void checkSpan(const ActivityFile &file)
    {
        const TimeWindow window = windowOf(m_record, file);
        const bool hasEnd = !m_record.endTime.isEmpty() && window.end <= file.last;
        const double end = hasEnd ? window.end : file.last;
        if (!file.hasSpan || file.last <= file.first || qMax(window.start, file.first) >= end) {
            add("span-empty", QStringLiteral("no time of the activity file \"%1\" is left in the "
                                             "record's window")
                                  .arg(m_record.file));
            return;
        }
        const bool isEarly = !m_record.startTime.isEmpty() && window.start < file.first;
        const bool isLate = !m_record.endTime.isEmpty() && window.end > file.last;
        if (isEarly || isLate)
            add("span-outside",
                QStringLiteral("the record's window %1 the activity file \"%2\", which goes from "
                               "%3 to %4 (%5)")
                    .arg(QLatin1String(isEarly ? "begins before" : "ends after"), m_record.file,
                         QString::number(file.first, 'g', 15), QString::number(file.last, 'g', 15),
                         file.timescale.text()));
    }

    void checkScope(const CoveringFile &covering, const DesignTree &design,
                    const DesignNames &names)
    {
        const std::optional<ScopeMisfit> misfit = scopeMisfit(covering, design, names);
        if (!misfit)
            return;
        const QString instance = m_record.entity.isEmpty()
                                     ? QStringLiteral("the design")
                                     : QLatin1Char('"') + m_record.entity + QLatin1Char('"');
        QString message =
            QStringLiteral("the activity file \"%1\" does not fit %2").arg(m_record.file, instance);
        if (misfit->proposal == names.design())
            message += QStringLiteral("; it fits the design");
        else if (!misfit->proposal.isEmpty())
            message += QStringLiteral("; it fits \"%1\"").arg(misfit->proposal);
        add("scope-misfit", message, misfit->proposal);
    }

    void checkActivity(const CoveringFile &covering)
    {
        if (!covering.isStatic.isEmpty())
            add("static", QStringLiteral("%1 flip-flops never toggle in \"%2\": %3")
                              .arg(QString::number(covering.isStatic.size()), m_record.file,
                                   listed(covering.isStatic)));
        if (!covering.isUnknown.isEmpty())
            add("x-time", QStringLiteral("%1 nets are unknown for some time in \"%2\": %3")
                              .arg(QString::number(covering.isUnknown.size()), m_record.file,
                                   listed(covering.isUnknown)));
    }

    void checkOverlaps(const QStringList &names)
    {
        if (!names.isEmpty())
            add("overlap",
                QStringLiteral("%1 nets in \"%2\" have a rate or an earlier file, too: %3")
                    .arg(QString::number(names.size()), m_record.file, listed(names)));
    }

private:
    void add(const char *rule, const QString &message, const QString &proposal = {})
    {
        m_findings->add(rule, m_place, message, proposal);
    }

    const VLT::VLT_VcdFile &m_record;
    const RecordPlace m_place;
    Findings *m_findings;
};

void checkMinimum(const Coverage &coverage, const QMap<NetKind, double> &minimum,
                  Findings *findings)
{
    const KindCounts &counts = coverage.whole().front().kinds;
    for (auto it = minimum.begin(); it != minimum.end(); ++it) {
        const quint32 nets = counts.nets[size_t(it.key())];
        const quint32 covered = counts.covered[size_t(it.key())];
        if (covered * 100.0 < it.value() * nets)
            findings->add("coverage-low", 0, QString(),
                          QStringLiteral("%1 of %2 nets of kind %3 have a rate of their own, less "
                                         "than %4 %")
                              .arg(QString::number(covered), QString::number(nets),
                                   netKindName(it.key()), QString::number(it.value())));
    }
}

} // namespace

void checkActivityContents(const ConfigurationInput &input, const DesignInput &design,
                           const ActivityOptions &options, Findings *findings)
{
    const auto &records = input.configuration.files.records;
    if (options.level == ActivityLevel::None || (records.isEmpty() && options.minimum.isEmpty()))
        return;
    std::optional<DesignTree> tree;
    Coverage coverage;
    if (design.names) {
        tree.emplace(*design.netlist, design.names->nets());
        CoverageOptions coverageOptions;
        coverageOptions.toggles = options.level == ActivityLevel::Full;
        coverageOptions.scopes = &design.scopes;
        coverage =
            computeCoverage(input.configuration, input.path, *tree, *design.names, coverageOptions);
        if (options.found)
            *options.found = coverage.foundScopes(*tree);
        checkMinimum(coverage, options.minimum, findings);
    }
    QVector<QStringList> overlaps(records.size());
    for (quint32 net = 0; net < coverage.nets().size(); ++net) {
        if (coverage.nets()[net].overlaps)
            overlaps[coverage.nets()[net].lastFile].append(tree->netPath(net));
    }
    for (int i = 0; i < records.size(); ++i) {
        const VLT::VLT_VcdFile &record = records.at(i);
        const QString path = activityPath(record, input.path);
        if (!QFileInfo(path).isFile())
            continue;
        FileCheck check(record,
                        {VLT::NODE_FILE, i + 1, input.report.lines.files.value(i), record.entity},
                        findings);
        const auto file = tree ? coverage.files()[size_t(i)].file : readActivityFile(path);
        if (!check.checkKind(*file))
            continue;
        check.checkAge(*file, design.netlistPath);
        if (file->cutAt < 0 || file->hasSpan)
            check.checkSpan(*file);
        if (!tree)
            continue;
        check.checkScope(coverage.files()[size_t(i)], *tree, *design.names);
        check.checkActivity(coverage.files()[size_t(i)]);
        check.checkOverlaps(overlaps.at(i));
    }
}

} // namespace Check
