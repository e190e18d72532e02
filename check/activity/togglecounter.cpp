#include "check/activity/togglecounter.h"

#include "check/activity/blockinput.h"
#include "host/nlsdata/readcontrol.h"

#include <QFile>

#include <charconv>
#include <string>

namespace Check {

namespace {

/// Where the time of a value is counted; by number, since branches would be taken at random.
constexpr double BitActivity::*TIMES[] = {&BitActivity::low, &BitActivity::high,
                                          &BitActivity::unknown};

} // namespace

/// Reads the values of a VCD file.
class ToggleReader : private BlockInput
{
public:
    ToggleReader(QIODevice *device, const ActivityFile &file, const TimeWindow &window,
                 ToggleCounts *counts)
        : BlockInput(device)
        , m_file(file)
        , m_window(window)
        , m_counts(*counts)
        , m_widths(file.declarations.signalCount())
        , m_bits(counts->m_bits)
        , m_values(m_bits.size(), Unknown)
        , m_time(file.first)
        , m_isInWindow(file.first >= window.start && file.first < window.end)
    {
        static_assert(sizeof(Bit) == 64);
        for (quint32 signal = 0; signal < m_widths.size(); ++signal)
            m_widths[signal] = file.declarations.widthOf(signal);
    }

    void read(qint64 size, NlsData::ReadControl *control)
    {
        std::string_view token;
        qint64 reported = 0;
        while (next(&token)) {
            if (control && tokenOffset() - reported >= BLOCK) {
                reported = tokenOffset();
                control->report(int(1000 * reported / qMax<qint64>(1, size)));
            }
            if (!take(token))
                break;
        }
        for (Bit &bit : m_bits)
            settle(bit);
        m_counts.duration = m_active;
    }

private:
    using Bit = ToggleCounts::Bit;
    using Value = ToggleCounts::Value;
    static constexpr Value Low = ToggleCounts::Low;
    static constexpr Value Unknown = ToggleCounts::Unknown;

    static Value valueOf(char c)
    {
        return c == '0' ? Low : c == '1' ? ToggleCounts::High : Unknown;
    }

    /// False when the window has ended.
    bool take(std::string_view token)
    {
        switch (token.front()) {
        case '#': {
            double time = 0;
            quint64 ticks = 0;
            const auto result =
                std::from_chars(token.data() + 1, token.data() + token.size(), ticks);
            time = result.ec == std::errc() ? double(ticks) : m_time;
            setTime(time);
            return time < m_window.end;
        }
        case 'b':
        case 'B':
            m_vector.assign(token.data() + 1, token.size() - 1);
            if (next(&token))
                setVector(m_file.codes.find(token));
            return true;
        case 'r':
        case 'R':
        case 's':
        case 'S':
            next(&token);
            return true;
        case '$':
            takeKeyword(token);
            return true;
        default:
            if (!m_isSkipping)
                setScalar(token.front(), m_file.codes.find(token.substr(1)));
            return true;
        }
    }

    void takeKeyword(std::string_view token)
    {
        if (token == "$comment") {
            while (next(&token) && token != "$end") {
            }
        } else if (token == "$end") {
            m_isInitial = m_isSkipping = false;
        } else if (token == "$dumpoff") {
            m_isOff = m_isSkipping = true;
        } else {
            m_isOff = m_isOff && token != "$dumpon";
            m_isInitial = true;
        }
    }

    void setTime(double time)
    {
        const double from = qMax(m_time, m_window.start);
        const double to = qMin(time, m_window.end);
        if (!m_isOff && to > from)
            m_active += to - from;
        if (time > m_time && ++m_stamp == 0) {
            for (Bit &bit : m_bits) // numbers of changes that were long ago
                bit.stamp = m_stamp;
            ++m_stamp;
        }
        m_time = qMax(m_time, time);
        m_isInWindow = time >= m_window.start && time < m_window.end;
    }

    quint32 firstBit(quint32 signal) const
    {
        return signal < m_counts.m_first.size() ? m_counts.m_first[signal] : ToggleCounts::NONE;
    }

    void setScalar(char c, quint32 signal)
    {
        const quint32 bit = firstBit(signal);
        if (bit != ToggleCounts::NONE)
            set(bit, valueOf(c));
    }

    /// A short vector extends to the left: with 0, or with its own first letter when that is x or
    /// z.
    void setVector(quint32 signal)
    {
        const quint32 first = firstBit(signal);
        if (first == ToggleCounts::NONE || m_isSkipping || m_vector.empty())
            return;
        const quint32 width = m_widths[signal];
        const auto size = quint32(m_vector.size());
        const char *last = m_vector.data() + size - 1;
        const quint32 given = qMin(width, size);
        for (quint32 place = 0; place < given; ++place)
            set(first + place, valueOf(*(last - place)));
        const Value rest = valueOf(m_vector.front()) == Unknown ? Unknown : Low;
        for (quint32 place = given; place < width; ++place)
            set(first + place, rest);
    }

    void set(quint32 number, Value value)
    {
        if (m_values[number] == value && !m_isInitial)
            return;
        m_values[number] = value;
        Bit &bit = m_bits[number];
        if (bit.stamp == m_stamp && !bit.isInitial && !m_isInitial) {
            bit.value = value;
            bit.glitches += bit.isInWindow;
            return;
        }
        settle(bit);
        bit.since = m_active;
        bit.stamp = m_stamp;
        bit.value = value;
        if (m_isInitial)
            bit.known = value;
        bit.isInitial = m_isInitial;
        bit.isInWindow = m_isInWindow;
    }

    void settle(Bit &bit) const
    {
        bit.*TIMES[bit.value] += m_active - bit.since;
        const quint8 before = bit.known;
        const bool isToggle = int(before != bit.value) & int(before != Unknown) &
                              int(bit.value != Unknown) & int(bit.isInWindow);
        bit.toggles += isToggle;
        bit.known = bit.value == Unknown ? before : bit.value;
    }

    const ActivityFile &m_file;
    const TimeWindow m_window;
    ToggleCounts &m_counts;
    std::vector<quint32> m_widths; ///< by signal
    std::vector<Bit> &m_bits;
    std::vector<quint8> m_values; ///< once more the last ones: most do not change
    std::string m_vector;
    double m_time;
    double m_active = 0; ///< time in the window so far, while dumping was on
    quint32 m_stamp = 1;
    bool m_isInWindow;
    bool m_isInitial = false;
    bool m_isOff = false;
    bool m_isSkipping = false; ///< the values of $dumpoff
};

ToggleCounts countToggles(const ActivityFile &file, const std::vector<bool> &wanted,
                          const TimeWindow &window, NlsData::ReadControl *control)
{
    QFile device(file.path);
    if (file.kind == FileKind::Saif ||
        (device.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && device.seek(file.valuesAt)))
        return countToggles(&device, file, wanted, window, control);
    ToggleCounts counts;
    counts.error = device.errorString();
    return counts;
}

ToggleCounts countToggles(QIODevice *device, const ActivityFile &file,
                          const std::vector<bool> &wanted, const TimeWindow &window,
                          NlsData::ReadControl *control)
{
    ToggleCounts counts;
    const Declarations &declarations = file.declarations;
    counts.m_first.assign(declarations.signalCount(), ToggleCounts::NONE);
    quint32 bits = 0;
    for (quint32 signal = 0; signal < declarations.signalCount(); ++signal) {
        if (!wanted[signal])
            continue;
        counts.m_first[signal] = bits;
        bits += declarations.widthOf(signal);
    }
    counts.m_bits.resize(bits);
    if (file.kind == FileKind::Saif) {
        for (quint32 signal = 0; signal < file.counts.size(); ++signal) {
            const SaifCounts &given = file.counts[signal];
            if (wanted[signal])
                static_cast<BitActivity &>(counts.m_bits[counts.m_first[signal]]) = {
                    given.toggles, given.glitches, given.low, given.high, given.unknown};
        }
        counts.duration = file.last;
        return counts;
    }
    try {
        ToggleReader(device, file, window, &counts).read(device->size(), control);
    } catch (const ActivityError &error) {
        counts.error = QStringLiteral("%1, at byte %2").arg(error.cause).arg(error.offset);
    } catch (const NlsData::ReadError &error) {
        counts.error = error.cause;
    }
    return counts;
}

} // namespace Check
