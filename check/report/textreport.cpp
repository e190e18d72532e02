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

QByteArray textReport(const Report &report)
{
    QString text;
    for (const Finding &finding : report.findings) {
        text += oneLine(finding.file);
        if (finding.line > 0)
            text += QLatin1Char(':') + QString::number(finding.line);
        text += QStringLiteral(": ") + levelName(finding.rule->level) + QStringLiteral(": ") +
                oneLine(finding.message) + QStringLiteral(" [") + QLatin1String(finding.rule->id) +
                QStringLiteral("]\n");
    }
    return (text + summary(countsOf(report.findings)) + QLatin1Char('\n')).toUtf8();
}

} // namespace Check
