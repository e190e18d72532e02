#include "check/report/report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Check {

namespace {

QJsonObject problem(const Finding &finding)
{
    QJsonObject object{
        {QStringLiteral("rule"), QLatin1String(finding.rule->id)},
        {QStringLiteral("level"), levelName(finding.rule->level)},
        {QStringLiteral("file"), finding.file},
        {QStringLiteral("line"), finding.line},
        {QStringLiteral("section"), finding.section},
        {QStringLiteral("ordinal"), finding.ordinal},
        {QStringLiteral("name"), finding.name},
        {QStringLiteral("message"), finding.message},
    };
    if (!finding.proposal.isEmpty())
        object.insert(QStringLiteral("proposal"), finding.proposal);
    return object;
}

} // namespace

QByteArray jsonReport(const Report &report)
{
    QJsonArray inputs;
    for (const InputFile &input : report.inputs)
        inputs.append(QJsonObject{{QStringLiteral("path"), input.path},
                                  {QStringLiteral("sha256"), QString::fromLatin1(input.sha256)}});
    QJsonArray problems;
    for (const Finding &finding : report.findings)
        problems.append(problem(finding));
    const Counts counts = countsOf(report.findings);
    const QJsonObject root{
        {QStringLiteral("format"), 1},
        {QStringLiteral("inputs"), inputs},
        {QStringLiteral("problems"), problems},
        {QStringLiteral("counts"), QJsonObject{{QStringLiteral("error"), counts.errors},
                                               {QStringLiteral("warning"), counts.warnings},
                                               {QStringLiteral("note"), counts.notes}}},
    };
    return QJsonDocument(root).toJson();
}

} // namespace Check
