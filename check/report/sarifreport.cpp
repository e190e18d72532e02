#include "check/report/report.h"

#include <QCryptographicHash>
#include <QDir>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace Check {

namespace {

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

QJsonObject text(const QString &message)
{
    return {{key("text"), message}};
}

/// Relative to the working folder, as services that show results want it.
QString relativeUri(const QString &path)
{
    const QString relative = QDir::current().relativeFilePath(path);
    return QString::fromLatin1(QUrl::toPercentEncoding(relative, "/"));
}

QJsonArray ruleDescriptions()
{
    QJsonArray rules;
    for (const Rule &rule : allRules())
        rules.append(QJsonObject{
            {key("id"), QLatin1String(rule.id)},
            {key("shortDescription"), text(QLatin1String(rule.summary))},
            {key("defaultConfiguration"), QJsonObject{{key("level"), levelName(rule.level)}}},
        });
    return rules;
}

QJsonObject location(const Finding &finding)
{
    QJsonObject physical{
        {key("artifactLocation"), QJsonObject{{key("uri"), relativeUri(finding.file)}}}};
    if (finding.line > 0)
        physical.insert(key("region"), QJsonObject{{key("startLine"), finding.line}});
    QJsonObject result{{key("physicalLocation"), physical}};
    if (!finding.name.isEmpty())
        result.insert(key("logicalLocations"),
                      QJsonArray{QJsonObject{{key("fullyQualifiedName"), finding.name}}});
    return result;
}

/// Same for the same finding wherever it is in the file. `occurrence` tells equal ones apart.
QString fingerprint(const Finding &finding, int occurrence)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &part : {QString::fromLatin1(finding.rule->id), finding.section,
                                finding.name, finding.message, QString::number(occurrence)}) {
        hash.addData(part.toUtf8());
        hash.addData("", 1);
    }
    return QString::fromLatin1(hash.result().toHex().left(32));
}

QJsonObject result(const Finding &finding, const QString &message, const QString &print)
{
    return {
        {key("ruleId"), QLatin1String(finding.rule->id)},
        {key("ruleIndex"), int(finding.rule - allRules().constData())},
        {key("level"), levelName(finding.rule->level)},
        {key("message"), text(message)},
        {key("locations"), QJsonArray{location(finding)}},
        {key("partialFingerprints"), QJsonObject{{key("finding/v1"), print}}},
    };
}

QJsonArray results(const QVector<Finding> &findings, int maxPerRule)
{
    QJsonArray list;
    QHash<const Rule *, int> seen;
    QHash<QString, int> occurrences;
    for (const Finding &finding : findings) {
        if (++seen[finding.rule] > maxPerRule)
            continue;
        const QString base = fingerprint(finding, 0);
        const int occurrence = occurrences[base]++;
        list.append(result(finding, finding.message,
                           occurrence == 0 ? base : fingerprint(finding, occurrence)));
    }
    for (const Rule &rule : allRules()) {
        const int more = seen.value(&rule) - maxPerRule;
        if (more <= 0)
            continue;
        const Finding rest{&rule, findings.first().file, 0, {}, 0, {}, {}};
        list.append(result(rest,
                           QStringLiteral("%1 more results of this rule are not listed").arg(more),
                           fingerprint(rest, 0)));
    }
    return list;
}

} // namespace

QByteArray sarifReport(const Report &report, int maxPerRule, const QString &version)
{
    bool complete = true;
    for (const InputFile &input : report.inputs)
        complete = complete && !input.sha256.isEmpty();
    const QJsonObject driver{{key("name"), key("workbench check")},
                             {key("version"), version},
                             {key("rules"), ruleDescriptions()}};
    const QJsonObject run{
        {key("tool"), QJsonObject{{key("driver"), driver}}},
        {key("invocations"), QJsonArray{QJsonObject{{key("executionSuccessful"), complete}}}},
        {key("results"), results(report.findings, maxPerRule)},
    };
    const QJsonObject root{
        {key("$schema"), key("https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
                             "sarif-schema-2.1.0.json")},
        {key("version"), key("2.1.0")},
        {key("runs"), QJsonArray{run}},
    };
    return QJsonDocument(root).toJson();
}

} // namespace Check
