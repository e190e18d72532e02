#include "check/rules/rules.h"

#include "nlsdata/netlist.h"

#include <optional>

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
        std::optional<NameIndex> index;
        if (design.netlist)
            index.emplace(*design.netlist, namesOf(input.configuration));
        const NameIndex *names = index ? &*index : nullptr;
        checkFile(input, &findings);
        checkConditions(input, design.device, &findings);
        checkActivityFiles(input, design.netlist.get(), names, &findings);
        checkActivityContents(input, design, activity, &findings);
        checkObjects(input, names, &findings);
        if (design.names)
            checkMeanings(input, *design.names, &findings);
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

QSet<QString> namesOf(const VLT::Configuration &configuration)
{
    QSet<QString> names;
    const auto add = [&names](const auto &records) {
        for (const auto &record : records)
            names.insert(record.name);
    };
    add(configuration.rates.records);
    add(configuration.clocks.records);
    add(configuration.ports.records);
    add(configuration.bsrams.records);
    add(configuration.dffs.records);
    for (const VLT::VLT_VcdFile &file : configuration.files.records)
        names.insert(file.entity);
    names.remove(QString());
    return names;
}

} // namespace Check
