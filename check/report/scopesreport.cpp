#include "check/report/activityreport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Check {

namespace {

QString names(const QString &title, const QStringList &list)
{
    return list.isEmpty()
               ? QString()
               : QStringLiteral("  %1: %2\n").arg(title, oneLine(list.join(QLatin1String(", "))));
}

QString candidateText(const ScopeCandidate &candidate, const ActivityFile &file,
                      const DesignTree &design)
{
    return QStringLiteral("  %1 -> %2: %3; %4 of %5 variables used\n")
        .arg(orPlaceholder(file.declarations.path(candidate.scope), "(file)"),
             orPlaceholder(design.path(candidate.instance), "(design)"),
             candidate.counts.headline(), QString::number(candidate.variables.used),
             QString::number(candidate.variables.used + candidate.variables.unused));
}

} // namespace

QString oneLine(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\r'), QLatin1String("\\r"));
}

QString orPlaceholder(const QString &path, const char *placeholder)
{
    return path.isEmpty() ? QLatin1String(placeholder) : oneLine(path);
}

QString describeFile(const ActivityFile &file)
{
    QString text = oneLine(file.path);
    if (!file.isUsable())
        return text + QStringLiteral(": ") + oneLine(file.error);
    text += QStringLiteral(": ") + fileKindName(file.kind);
    if (file.timescale.isValid())
        text += QStringLiteral(", timescale ") + file.timescale.text();
    if (file.hasSpan)
        text += QStringLiteral(", time %1 to %2")
                    .arg(QString::number(file.first, 'g', 15), QString::number(file.last, 'g', 15));
    if (file.cutAt >= 0)
        text += QStringLiteral(", cut off at byte %1").arg(file.cutAt);
    return text;
}

QByteArray scopesText(const QVector<RankedFile> &files, const DesignTree &design, int maximum)
{
    QString text;
    for (const auto &[file, ranking] : files) {
        text += describeFile(*file);
        if (!file->isUsable()) {
            text += QLatin1Char('\n');
            continue;
        }
        text += QStringLiteral(": ") + ranking.verdictText() + QLatin1Char('\n');
        const int listed = qMin(maximum, ranking.candidates.size());
        for (int i = 0; i < listed; ++i)
            text += candidateText(ranking.candidates.at(i), *file, design);
        if (listed < ranking.candidates.size())
            text += QStringLiteral("  and %1 more\n").arg(ranking.candidates.size() - listed);
        text += names(QStringLiteral("only in the file"), ranking.unmatchedVariables);
        text += names(QStringLiteral("only in the design"), ranking.unmatchedNets);
    }
    return text.toUtf8();
}

QJsonObject kindsJson(const KindCounts &counts)
{
    QJsonObject kinds;
    for (const NetKind kind : ALL_NET_KINDS)
        kinds.insert(netKindName(kind), QJsonArray{qint64(counts.covered[size_t(kind)]),
                                                   qint64(counts.nets[size_t(kind)])});
    return kinds;
}

QByteArray scopesJson(const QVector<RankedFile> &files, const DesignTree &design, int maximum)
{
    const auto key = [](const char *name) { return QString::fromLatin1(name); };
    QJsonArray list;
    for (const auto &[file, ranking] : files) {
        QJsonArray candidates;
        for (int i = 0; i < qMin(maximum, ranking.candidates.size()); ++i) {
            const ScopeCandidate &candidate = ranking.candidates.at(i);
            candidates.append(
                QJsonObject{{key("scope"), file->declarations.path(candidate.scope)},
                            {key("instance"), design.path(candidate.instance)},
                            {key("covered"), qint64(candidate.counts.coveredNets())},
                            {key("nets"), qint64(candidate.counts.allNets())},
                            {key("byKind"), kindsJson(candidate.counts)},
                            {key("variables"), QJsonArray{qint64(candidate.variables.used),
                                                          qint64(candidate.variables.unused)}}});
        }
        QJsonObject object{
            {key("path"), file->path},
            {key("kind"), file->isUsable() ? fileKindName(file->kind) : QString()},
            {key("timescale"), file->timescale.text()},
            {key("span"), file->hasSpan ? QJsonArray{file->first, file->last} : QJsonArray()},
            {key("verdict"), file->isUsable() ? ranking.verdictText() : QString()},
            {key("candidates"), candidates}};
        if (!file->isUsable())
            object.insert(key("error"), file->error);
        list.append(object);
    }
    return QJsonDocument(QJsonObject{{key("format"), 1}, {key("files"), list}}).toJson();
}

} // namespace Check
