#pragma once

#include "check/activity/togglecounter.h"

#include <QHash>

namespace Check {

/// Keeps the counts of files that have not changed, for one who asks again: the last ones of each
/// file and window.
class ToggleStore
{
public:
    /// The counts of a file, with those of all `wanted` signals; null when they are not kept, or
    /// the file has another size or time than when they were counted. Valid until the next count().
    const ToggleCounts *find(const ActivityFile &file, const std::vector<bool> &wanted,
                             const TimeWindow &window) const;

    /// The same, counted when it is not there; see countToggles().
    ToggleCounts count(const ActivityFile &file, const std::vector<bool> &wanted,
                       const TimeWindow &window, NlsData::ReadControl *control);

private:
    struct Kept
    {
        qint64 size;
        qint64 modified; ///< ms since 1970
        std::vector<bool> wanted;
        ToggleCounts counts;
    };
    QHash<QString, Kept> m_kept; ///< by file and window
};

} // namespace Check
