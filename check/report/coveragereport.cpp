#include "check/report/coveragereport.h"

#include "check/configurationinput.h"
#include "check/report/activityreport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Check {

namespace {

constexpr int LISTED = 5; ///< names of a note in the text

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

/// The scopes down to the depth, with their levels.
template<typename Use>
void forEachScope(const CoverageReport &report, const Use &use)
{
    const auto &scopes = report.design.scopes();
    std::vector<int> levels(scopes.size(), 0);
    for (quint32 scope = 0; scope < scopes.size(); ++scope) {
        if (scope > 0)
            levels[scope] = levels[scopes[scope].parent] + 1;
        if (report.depth < 0 || levels[scope] <= report.depth)
            use(scope, levels[scope]);
    }
}

QString sourcesText(const InstanceCoverage &coverage)
{
    const auto count = [&](NetSource source) {
        return QString::number(coverage.sources[size_t(source)]);
    };
    return QStringLiteral("%1 from rates, %2 from files, %3 from the default for IO inputs, %4 "
                          "from the default for the rest, %5 constant")
        .arg(count(NetSource::Rate), count(NetSource::File), count(NetSource::DefaultIo),
             count(NetSource::DefaultRest), count(NetSource::Constant));
}

QString noteText(const char *id, const QString &what, const QStringList &names)
{
    if (names.isEmpty())
        return QString();
    QString text = QStringLiteral("  note: %1 %2: %3")
                       .arg(QString::number(names.size()), what,
                            oneLine(QStringList(names.mid(0, LISTED)).join(QLatin1String(", "))));
    if (names.size() > LISTED)
        text += QStringLiteral(" …");
    return text + QStringLiteral(" [%1]\n").arg(QLatin1String(id));
}

QString fileText(const CoveringFile &covering, const CoverageReport &report)
{
    QString text = describeFile(*covering.file);
    if (!covering.file->isUsable())
        return text + QLatin1Char('\n');
    if (covering.instance == DesignTree::NONE)
        return text + QStringLiteral(": its instance is not in the netlist\n");
    const auto &declarations = covering.file->declarations;
    text += QStringLiteral(": %1 -> %2, %3 nets\n")
                .arg(orPlaceholder(declarations.path(covering.scope.scope), "(file)"),
                     orPlaceholder(report.design.path(covering.instance), "(design)"),
                     QString::number(covering.nets));
    if (!covering.counts.error.isEmpty())
        text += QStringLiteral("  ") + oneLine(covering.counts.error) + QLatin1Char('\n');
    return text + noteText("static", QStringLiteral("flip-flops never toggle"), covering.isStatic) +
           noteText("x-time", QStringLiteral("nets are unknown for some time"), covering.isUnknown);
}

QJsonObject sourcesJson(const InstanceCoverage &coverage)
{
    QJsonObject sources;
    for (const NetSource source : ALL_NET_SOURCES)
        sources.insert(netSourceName(source), qint64(coverage.sources[size_t(source)]));
    return sources;
}

QJsonArray filesJson(const CoverageReport &report)
{
    QJsonArray files;
    for (const CoveringFile &covering : report.coverage.files()) {
        QJsonObject file{{key("path"), covering.file->path},
                         {key("nets"), qint64(covering.nets)},
                         {key("scope"), covering.file->isUsable()
                                            ? covering.file->declarations.path(covering.scope.scope)
                                            : QString()},
                         {key("instance"), covering.instance == DesignTree::NONE
                                               ? QString()
                                               : report.design.path(covering.instance)}};
        const QString error =
            covering.file->isUsable() ? covering.counts.error : covering.file->error;
        if (!error.isEmpty())
            file.insert(key("error"), error);
        if (report.coverage.hasToggles()) {
            file.insert(key("duration"), covering.counts.duration);
            file.insert(key("static"), QJsonArray::fromStringList(covering.isStatic));
            file.insert(key("xTime"), QJsonArray::fromStringList(covering.isUnknown));
        }
        files.append(file);
    }
    return files;
}

/// As RFC 4180 has it.
QString quotedCsv(const QString &text)
{
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QLatin1String("\"\"")) +
           QLatin1Char('"');
}

} // namespace

QByteArray coverageText(const CoverageReport &report)
{
    const Coverage &coverage = report.coverage;
    const InstanceCoverage &all = coverage.whole().front();
    QString text = QStringLiteral("%1: %2 nets: %3\n")
                       .arg(oneLine(report.input.path), QString::number(all.kinds.allNets()),
                            all.kinds.headline());
    text += QStringLiteral("  %1; %2 have several sources, %3 are clocks\n")
                .arg(sourcesText(all), QString::number(coverage.overlaps()),
                     QString::number(coverage.clocks()));
    for (const CoveringFile &covering : coverage.files())
        text += fileText(covering, report);
    text += QStringLiteral("    nets  covered  own nets") +
            (coverage.hasToggles() ? QStringLiteral("    toggles") : QString()) +
            QStringLiteral("  instance\n");
    forEachScope(report, [&](quint32 scope, int level) {
        const InstanceCoverage &whole = coverage.whole()[scope];
        text += QStringLiteral("%1 %2 %3")
                    .arg(whole.kinds.allNets(), 8)
                    .arg(whole.kinds.coveredNets(), 8)
                    .arg(coverage.own()[scope].kinds.allNets(), 9);
        if (coverage.hasToggles())
            text += QStringLiteral(" %1").arg(whole.toggles, 10);
        text += QStringLiteral("  ") + QString(2 * level, QLatin1Char(' ')) +
                orPlaceholder(report.design.path(scope), "(design)") + QLatin1Char('\n');
    });
    return text.toUtf8();
}

QByteArray coverageJson(const CoverageReport &report)
{
    const Coverage &coverage = report.coverage;
    const InstanceCoverage &all = coverage.whole().front();
    QJsonArray instances;
    forEachScope(report, [&](quint32 scope, int) {
        const InstanceCoverage &whole = coverage.whole()[scope];
        const InstanceCoverage &own = coverage.own()[scope];
        QJsonObject instance{
            {key("path"), report.design.path(scope)},
            {key("nets"), qint64(whole.kinds.allNets())},
            {key("covered"), qint64(whole.kinds.coveredNets())},
            {key("byKind"), kindsJson(whole.kinds)},
            {key("sources"), sourcesJson(whole)},
            {key("own"), QJsonObject{{key("nets"), qint64(own.kinds.allNets())},
                                     {key("covered"), qint64(own.kinds.coveredNets())}}}};
        if (coverage.hasToggles())
            instance.insert(key("toggles"), qint64(whole.toggles));
        instances.append(instance);
    });
    const QJsonObject root{{key("format"), 1},
                           {key("nets"), qint64(all.kinds.allNets())},
                           {key("sources"), sourcesJson(all)},
                           {key("overlaps"), qint64(coverage.overlaps())},
                           {key("clocks"), qint64(coverage.clocks())},
                           {key("byKind"), kindsJson(all.kinds)},
                           {key("files"), filesJson(report)},
                           {key("instances"), instances}};
    return QJsonDocument(root).toJson();
}

QByteArray coverageCsv(const CoverageReport &report)
{
    QString text = QStringLiteral("path,nets,covered,own nets,own covered");
    for (const NetSource source : ALL_NET_SOURCES)
        text += QLatin1Char(',') + netSourceName(source);
    for (const NetKind kind : ALL_NET_KINDS)
        text += QStringLiteral(",%1 nets,%1 covered").arg(netKindName(kind));
    const bool hasToggles = report.coverage.hasToggles();
    text += hasToggles ? QStringLiteral(",toggles\r\n") : QStringLiteral("\r\n");
    forEachScope(report, [&](quint32 scope, int) {
        const InstanceCoverage &whole = report.coverage.whole()[scope];
        const InstanceCoverage &own = report.coverage.own()[scope];
        text += quotedCsv(report.design.path(scope));
        const auto add = [&](quint64 number) {
            text += QLatin1Char(',') + QString::number(number);
        };
        add(whole.kinds.allNets());
        add(whole.kinds.coveredNets());
        add(own.kinds.allNets());
        add(own.kinds.coveredNets());
        for (const NetSource source : ALL_NET_SOURCES)
            add(whole.sources[size_t(source)]);
        for (const NetKind kind : ALL_NET_KINDS) {
            add(whole.kinds.nets[size_t(kind)]);
            add(whole.kinds.covered[size_t(kind)]);
        }
        if (hasToggles)
            add(whole.toggles);
        text += QLatin1String("\r\n");
    });
    return text.toUtf8();
}

} // namespace Check
