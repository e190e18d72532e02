#pragma once

#include <QString>

#include <atomic>

namespace NlsData {

/// The line between a thread that reads a netlist and one that watches it. Must outlive the read.
class ReadControl
{
public:
    ReadControl() = default;
    virtual ~ReadControl() = default;

    void cancel() { m_cancelled = true; }
    bool isCancelled() const { return m_cancelled; }

    /// How far the read has come, 0 to 1000.
    int permille() const { return m_permille; }

    /// Called by the reading thread every few thousand objects; throws ReadError when cancelled.
    virtual void report(int permille);

private:
    Q_DISABLE_COPY(ReadControl)

    std::atomic<bool> m_cancelled{false};
    std::atomic<int> m_permille{0};
};

/// Ends a read: the cause in words that complete "Cannot read the netlist file 'x': ".
struct ReadError
{
    QString cause;
};

inline void ReadControl::report(int permille)
{
    m_permille = permille;
    if (m_cancelled)
        throw ReadError{QStringLiteral("reading was canceled")};
}

} // namespace NlsData
