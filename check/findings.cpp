#include "check/findings.h"

namespace Check {

void Findings::add(const char *rule, const RecordPlace &place, const QString &message,
                   const QString &proposal)
{
    const QString id = QString::fromLatin1(rule);
    if (m_disabled.contains(id))
        return;
    m_findings.append({findRule(id), m_file, place.line, place.section, place.ordinal, place.name,
                       message, proposal});
}

void Findings::add(const char *rule, int line, const QString &section, const QString &message,
                   const QString &proposal)
{
    add(rule, RecordPlace{section, 0, line, QString()}, message, proposal);
}

void Findings::propose(const QHash<QPair<QString, int>, QString> &proposals)
{
    for (Finding &finding : m_findings) {
        const QLatin1String rule(finding.rule->id);
        const bool isMissing =
            rule == QLatin1String("name-missing") || rule == QLatin1String("entity-missing");
        if (isMissing)
            finding.proposal = proposals.value({finding.section, finding.ordinal});
    }
}

} // namespace Check
