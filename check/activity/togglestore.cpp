#include "check/activity/togglestore.h"

#include <QDateTime>
#include <QFileInfo>

namespace Check {

namespace {

QString keyOf(const ActivityFile &file, const TimeWindow &window)
{
    return QStringList{QFileInfo(file.path).absoluteFilePath(),
                       QString::number(window.start, 'g', 17), QString::number(window.end, 'g', 17)}
        .join(QLatin1Char('\n'));
}

/// Whether what is wanted is among what was counted: the netlist may be another one.
bool contains(const std::vector<bool> &counted, const std::vector<bool> &wanted)
{
    if (counted.size() != wanted.size())
        return false;
    for (size_t i = 0; i < wanted.size(); ++i) {
        if (wanted[i] && !counted[i])
            return false;
    }
    return true;
}

} // namespace

const ToggleCounts *ToggleStore::find(const ActivityFile &file, const std::vector<bool> &wanted,
                                      const TimeWindow &window) const
{
    const auto kept = m_kept.constFind(keyOf(file, window));
    const QFileInfo info(file.path);
    const bool isValid = kept != m_kept.constEnd() && kept->size == info.size() &&
                         kept->modified == info.lastModified().toMSecsSinceEpoch() &&
                         contains(kept->wanted, wanted);
    return isValid ? &kept->counts : nullptr;
}

ToggleCounts ToggleStore::count(const ActivityFile &file, const std::vector<bool> &wanted,
                                const TimeWindow &window, NlsData::ReadControl *control)
{
    if (const ToggleCounts *kept = find(file, wanted, window))
        return *kept;
    const QFileInfo info(file.path);
    const Kept kept{info.size(), info.lastModified().toMSecsSinceEpoch(), wanted,
                    countToggles(file, wanted, window, control)};
    if (kept.counts.error.isEmpty())
        m_kept.insert(keyOf(file, window), kept);
    return kept.counts;
}

} // namespace Check
