#pragma once

#include "check/designinput.h"
#include "check/finding.h"

#include <QHash>
#include <QPair>

namespace NlsData {
class ReadControl;
}

namespace Workbench {

class SharedDesign;

/// What one run checks.
struct CheckJob
{
    QString path; ///< of the configuration
    QString netlistPath;
    QString device;
    bool recordNames = false;       ///< first brings the memory of names up to date
    bool keepScopes = false;        ///< the scopes that are found are to be kept in the project
    Check::KnownScopes scopes = {}; ///< that were found before
};

struct CheckResult
{
    QVector<Check::Finding> findings; ///< sorted
    /// By section and ordinal, of records whose name is listed before: the number among those.
    QHash<QPair<QString, int>, int> occurrences;
    Check::KnownScopes scopes; ///< of activity files, where they fit
    QString problem;           ///< why the memory of names could not be written; empty otherwise

    /// The number of the finding's record among those of its name, from 1.
    int occurrence(const Check::Finding &finding) const
    {
        return occurrences.value({finding.section, finding.ordinal}, 1);
    }
};

/// Runs a job, for any thread. `control` is borrowed and may be null.
CheckResult runChecks(const CheckJob &job, SharedDesign *design, NlsData::ReadControl *control);

} // namespace Workbench
