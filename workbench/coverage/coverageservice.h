#pragma once

#include "workbench/coverage/coveragerun.h"

#include "check/activity/togglestore.h"

#include <QObject>

namespace NlsData {
class ReadControl;
}

namespace TE {
class Worker;
}

namespace Workbench {

class CheckService;

/// Computes, in a thread, what covers the design according to the configuration in front, as its
/// file is, while somebody looks: when another one comes to the front, and when file, netlist or
/// device change. A run whose reason has gone is ended and dropped. Toggles are counted when asked
/// for, and kept for as long as the activity files stay the same. No document is changed.
class CoverageService : public QObject
{
    Q_OBJECT

public:
    /// `checks` is borrowed: it knows the open configurations, and has the netlist.
    explicit CoverageService(CheckService *checks);
    ~CoverageService() override;

    struct State
    {
        CoverageResult result;
        bool isStale = true;     ///< a new one is needed
        bool isRunning = false;  ///< and on its way
        bool isCounting = false; ///< toggles, too
        bool wantsCount = false;
        bool isStopped = false; ///< by the user: toggles are not counted
    };

    /// The configuration in front; empty when none is open.
    QString current() const;
    /// Of that configuration; null when none is open.
    const State *state() const;
    /// Whether the view has changes that the file has not.
    bool isModified() const;
    /// Progress of the run, 0 to 1000.
    int permille() const;

    /// Whether somebody looks.
    void setWatched(bool watched);

    /// Counts the toggles for the configuration in front.
    void countToggles();
    void stop();

signals:
    /// current() is another one, or its state has changed.
    void changed();

private:
    void onChecksChanged();
    void onOutdated(const QString &path);
    void startNext();
    void onDone();
    void supersede();

    CheckService *const m_checks;
    QHash<QString, State> m_states; // by path
    Check::ToggleStore m_store;     // of the worker while it runs
    QString m_running;              // path, while there is a worker
    bool m_isWatched = false;
    bool m_isSuperseded = false;
    bool m_wasStale = false; // before the run
    CoverageResult m_result; // of the worker
    std::unique_ptr<NlsData::ReadControl> m_control;
    std::unique_ptr<TE::Worker> m_worker;
};

} // namespace Workbench
