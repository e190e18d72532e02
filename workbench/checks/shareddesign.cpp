#include "workbench/checks/shareddesign.h"

#include "check/names/designnames.h"
#include "host/nlsdata/readnetlist.h"

#include "nlsdata/netlist.h"

namespace Workbench {

Check::DesignInput SharedDesign::get(const QString &path, const QString &device,
                                     NlsData::ReadControl *control)
{
    const std::lock_guard reading(m_reading);
    Check::DesignInput design;
    int generation = 0;
    {
        const std::lock_guard lock(m_mutex);
        design = m_design;
        generation = m_generation;
    }
    if (!design.netlist || design.netlistPath != path) {
        design = {};
        design.netlistPath = path;
        NlsData::ReadOptions options;
        options.allNames = true;
        options.sha256 = &design.netlistSha256;
        options.control = control;
        if (!path.isEmpty())
            design.netlist = NlsData::readNetlist(path, &design.netlistError, options);
        if (design.netlist)
            design.names = std::make_shared<Check::DesignNames>(*design.netlist);
        const std::lock_guard lock(m_mutex);
        if (generation == m_generation)
            m_design = design;
    }
    design.device = device;
    return design;
}

void SharedDesign::drop()
{
    const std::lock_guard lock(m_mutex);
    m_design = {};
    ++m_generation;
}

} // namespace Workbench
