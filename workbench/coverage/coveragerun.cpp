#include "workbench/coverage/coveragerun.h"

#include "check/configurationinput.h"
#include "check/names/designnames.h"
#include "workbench/checks/shareddesign.h"

#include "host/nlsdata/readcontrol.h"

#include "nlsdata/netlist.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Workbench {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("Coverage", text);
}

QStringList problemsOf(const Check::Coverage &coverage)
{
    QStringList problems;
    for (const Check::CoveringFile &covering : coverage.files()) {
        const QString name = QFileInfo(covering.file->path).fileName();
        const QString error =
            covering.file->isUsable() ? covering.counts.error : covering.file->error;
        if (!error.isEmpty())
            problems += tr("%1 cannot be used: %2").arg(name, error);
        else if (covering.instance == Check::DesignTree::NONE)
            problems += tr("%1 is bound to an instance that is not in the netlist").arg(name);
        else if (covering.scope.counts.coveredNets() == 0)
            problems += tr("%1 covers nothing of its instance").arg(name);
    }
    return problems;
}

} // namespace

CoverageResult runCoverage(const CheckJob &job, bool count, SharedDesign *design,
                           Check::ToggleStore *store, NlsData::ReadControl *control)
{
    auto data = std::make_shared<CoverageData>();
    data->design = design->get(job.netlistPath, job.device, control);
    if (!data->design.names)
        return {nullptr, data->design.netlistError.isEmpty() ? tr("no netlist is known")
                                                             : data->design.netlistError};
    const Check::ConfigurationInput input = Check::readConfigurationInput(job.path);
    if (!input.isUsable())
        return {nullptr, input.readable ? input.report.error : input.error};
    data->tree = std::make_unique<const Check::DesignTree>(*data->design.netlist,
                                                           data->design.names->nets());
    Check::CoverageOptions options;
    options.toggles = true;
    options.onlyKept = !count;
    options.control = control;
    options.store = store;
    options.scopes = &job.scopes;
    data->coverage =
        computeCoverage(input.configuration, job.path, *data->tree, *data->design.names, options);
    if (control->isCancelled())
        return {nullptr, tr("stopped")};
    data->problems = problemsOf(data->coverage);
    return {data, {}};
}

} // namespace Workbench
