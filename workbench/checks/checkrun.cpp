#include "workbench/checks/checkrun.h"

#include "check/names/nameplan.h"
#include "check/rules/rules.h"
#include "config/filenames.h"
#include "workbench/checks/shareddesign.h"

#include <algorithm>

namespace Workbench {

namespace {

QHash<QPair<QString, int>, int> occurrencesOf(const VLT::Configuration &configuration)
{
    QHash<QPair<QString, int>, int> occurrences;
    const auto add = [&occurrences](const QString &section, const auto &records,
                                    const auto &nameOf) {
        QHash<QString, int> counts;
        counts.reserve(records.size());
        for (int i = 0; i < records.size(); ++i) {
            const int count = ++counts[nameOf(records.at(i))];
            if (count > 1)
                occurrences.insert({section, i + 1}, count);
        }
    };
    const auto name = [](const auto &record) { return record.name; };
    add(VLT::NODE_NET, configuration.rates.records, name);
    add(VLT::NODE_FILE, configuration.files.records,
        [](const VLT::VLT_VcdFile &file) { return file.entity; });
    add(VLT::NODE_CLOCK, configuration.clocks.records, name);
    add(VLT::NODE_PORT, configuration.ports.records, name);
    add(VLT::NODE_BSRAM, configuration.bsrams.records, name);
    add(VLT::NODE_INSTANCE, configuration.dffs.records, name);
    return occurrences;
}

} // namespace

CheckResult runChecks(const CheckJob &job, SharedDesign *design, NlsData::ReadControl *control)
{
    CheckResult result;
    Check::DesignInput input = design->get(job.netlistPath, job.device, control);
    input.scopes = job.scopes;
    Check::ConfigurationInput file = Check::readConfigurationInput(job.path);
    if (job.recordNames && input.names && file.isUsable() &&
        Check::recordNames(file, *input.names, input.netlistSha256, {}, &result.problem))
        file.names.read(job.path, &file.namesError);
    result.occurrences = occurrencesOf(file.configuration);
    Check::ActivityOptions activity;
    activity.level = Check::ActivityLevel::Header;
    activity.found = &result.scopes;
    result.findings = checkConfiguration(file, input, {}, activity);
    if (!input.netlistError.isEmpty())
        result.findings.append({Check::findRule(QStringLiteral("not-readable")),
                                job.netlistPath,
                                0,
                                {},
                                0,
                                {},
                                input.netlistError});
    return result;
}

} // namespace Workbench
