#include "check/rules/rules.h"

namespace Check {

QVector<Finding> checkConfiguration(const ConfigurationInput &input, const DesignInput &design,
                                    const QSet<QString> &disabled, const ActivityOptions &activity)
{
    Findings findings(input.path, disabled);
    if (!input.readable) {
        findings.add("not-readable", 0, QString(), input.error);
    } else if (!input.report.isRead()) {
        findings.add("not-a-config", input.report.errorLine, QString(), input.report.error);
    } else {
        const DesignNames *names = design.names.get();
        checkFile(input, &findings);
        checkConditions(input, design.device, &findings);
        checkActivityFiles(input, names, &findings);
        checkActivityContents(input, design, activity, &findings);
        checkObjects(input, names, &findings);
        if (names)
            checkMeanings(input, *names, &findings);
    }
    QVector<Finding> result = findings.all();
    if (!input.namesError.isEmpty())
        result.append({findRule(QStringLiteral("not-readable")),
                       NameMemory::fileFor(input.path),
                       0,
                       {},
                       0,
                       {},
                       input.namesError});
    sortFindings(&result);
    return result;
}

} // namespace Check
