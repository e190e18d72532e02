#pragma once

#include "check/activity/activityfile.h"

#include <limits>

namespace NlsData {
class ReadControl;
}

namespace Check {

/// What a bit does in a time window. Times are in ticks of the file.
struct BitActivity
{
    quint64 toggles = 0;  ///< changes between 0 and 1, also by way of x or z
    quint64 glitches = 0; ///< values that another one replaced at the same time stamp
    double low = 0;
    double high = 0;
    double unknown = 0; ///< x or z
};

/// From `start` on and before `end`, in ticks of the file.
struct TimeWindow
{
    double start = 0;
    double end = std::numeric_limits<double>::infinity();

    bool operator==(const TimeWindow &other) const
    {
        return start == other.start && end == other.end;
    }
};

/// The activity of the bits of a file that were asked for.
class ToggleCounts
{
public:
    QString error;       ///< why there are none; empty when there are
    double duration = 0; ///< of the window within the file, without the time when dumping was off

    /// Null for a bit of a signal that was not asked for.
    const BitActivity *bit(quint32 signal, quint32 place) const
    {
        const quint32 first = m_first[signal];
        return first == NONE ? nullptr : &m_bits[first + place];
    }

private:
    friend class ToggleReader;
    friend ToggleCounts countToggles(QIODevice *, const ActivityFile &, const std::vector<bool> &,
                                     const TimeWindow &, NlsData::ReadControl *);
    static constexpr quint32 NONE = 0xffffffff;

    enum Value : quint8 { Low, High, Unknown };
    /// A bit, with its state while the values go by: all in one line of the cache. What it counts
    /// for is settled when it changes at a later time stamp, since only the last value of one
    /// counts.
    struct alignas(64) Bit : BitActivity
    {
        double since = 0;  ///< active time at its last change
        quint32 stamp = 0; ///< number of the time stamp then
        quint8 value = Unknown;
        quint8 known = Unknown;  ///< the last 0 or 1 that was settled
        bool isInitial = true;   ///< was set without a change: by $dumpvars and the like
        bool isInWindow = false; ///< the last change
    };

    std::vector<quint32> m_first; ///< by signal: its lowest bit, or NONE
    std::vector<Bit> m_bits;
};

/// Counts the toggles of the signals that are `wanted`, by number. Reads the values of a VCD file
/// once more from its path; SAIF must have been read with its counts, and knows no window.
/// `control`, which may be null, is told the progress and can stop it.
ToggleCounts countToggles(const ActivityFile &file, const std::vector<bool> &wanted,
                          const TimeWindow &window, NlsData::ReadControl *control = nullptr);

/// The same for the values that follow in an open device.
ToggleCounts countToggles(QIODevice *device, const ActivityFile &file,
                          const std::vector<bool> &wanted, const TimeWindow &window,
                          NlsData::ReadControl *control = nullptr);

} // namespace Check
