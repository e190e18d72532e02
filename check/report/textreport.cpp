#include "check/report/report.h"

namespace Check {

namespace {

/// A name from a file may hold line breaks, which would forge a line of the report.
QString oneLine(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\r'), QLatin1String("\\r"));
}

} // namespace

QString textLine(const Finding &finding)
{
    QString text = oneLine(finding.file);
    if (finding.line > 0)
        text += QLatin1Char(':') + QString::number(finding.line);
    return text + QStringLiteral(": ") + levelName(finding.rule->level) + QStringLiteral(": ") +
           oneLine(finding.message) + QStringLiteral(" [") + QLatin1String(finding.rule->id) +
           QLatin1Char(']');
}

QByteArray textReport(const Report &report)
{
    QString text;
    for (const Finding &finding : report.findings)
        text += textLine(finding) + QLatin1Char('\n');
    return (text + summary(countsOf(report.findings)) + QLatin1Char('\n')).toUtf8();
}

} // namespace Check
