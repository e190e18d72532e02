#pragma once

#include <QString>

#include <atomic>

namespace NlsData {

/// Progress and cancellation shared by reader and watcher threads. Must outlive the read.
class ReadControl
{
public:
    ReadControl() = default;
    virtual ~ReadControl() = default;

    void cancel() { m_cancelled = true; }
    bool isCancelled() const { return m_cancelled; }

    /// Progress of the read, 0 to 1000.
    int permille() const { return m_permille; }

    /// Called by the reading thread every few thousand objects; throws ReadError if canceled.
    virtual void report(int permille);

private:
    Q_DISABLE_COPY(ReadControl)

    std::atomic<bool> m_cancelled{false};
    std::atomic<int> m_permille{0};
};

/// Ends a read; the cause completes "Cannot read the netlist file 'x': ".
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
