#pragma once

#include "check/activity/coverage.h"
#include "workbench/checks/checkrun.h"

#include <memory>

namespace Check {
class ToggleStore;
}

namespace Workbench {

class SharedDesign;

/// What covers a design, with the design that it was computed for.
struct CoverageData
{
    Check::DesignInput design; ///< keeps what the tree refers to
    std::unique_ptr<const Check::DesignTree> tree;
    Check::Coverage coverage;
    QStringList problems; ///< of activity files that cannot be used, a sentence each
};

struct CoverageResult
{
    std::shared_ptr<const CoverageData> data; ///< null when there is an error
    QString error;                            ///< why there is none; empty when there is
};

/// Computes the coverage of a saved configuration, for any thread. `count`: toggles, too; otherwise
/// only those that `store` has. All are borrowed; `control` ends the run early, with an error.
CoverageResult runCoverage(const CheckJob &job, bool count, SharedDesign *design,
                           Check::ToggleStore *store, NlsData::ReadControl *control);

} // namespace Workbench
