#pragma once

#include "hostexport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace TE {

class FlowManager;
class FlowProcess;
class ResultKeeper;
class ResultWatcher;

/// The host's side of the design flow: runs the synthesis of the current project.
///
/// Every change of state is raised as the event "TE.Process.Status.Change" with the values
/// "process" = "Process.Syn" and "status", the number of the state. A run that fails or is stopped
/// leaves the result files unchanged; one that did not write the netlist ends idle.
class HOST_EXPORT FlowControl : public QObject
{
    Q_OBJECT

public:
    enum Status {
        Idle = 0,
        Running = 1,
        Finished = 2, ///< successfully; the results are new
        Failed = 3,
        Stopped = 4, ///< by stop()
    };
    Q_ENUM(Status)

    static FlowControl *get();
    FlowManager *manager() const { return m_manager; }

    QString resultFile(const QString &key) const;

    Status status() const { return m_status; }
    bool isRunning() const { return m_status == Running; }

    /// Starts the synthesis command in the project's folder, once the results have been copied.
    /// False if it cannot be tried, with one sentence in `error`; a program that does not start is
    /// a failed run.
    bool start(QString *error);

    /// Asks the run and all its processes to end, and kills them if they have not ended after
    /// `killAfter` milliseconds. Does nothing without a run.
    void stop(int killAfter = 3000);

    /// Whether a complete netlist written by another program counts as a finished run (the
    /// default).
    void setWatching(bool watching);

signals:
    /// One line of output, without its line break; both channels in order of arrival.
    void output(const QString &line);

    /// One sentence for the user about the new state.
    void message(const QString &text);
    void statusChanged(TE::FlowControl::Status status);

private:
    FlowControl();
    ~FlowControl() override;
    void setStatus(Status status, const QString &text);
    void runCommand(const QString &error);
    void endRun(bool keepResults);
    void leave();
    void onProjectChanged();
    void onProjectEdited();
    void followProject();
    void onProcessEnded(bool ok, const QString &cause);
    void onResultReplaced();
    void onResultUnreadable(const QString &reason);

    FlowManager *const m_manager;
    std::unique_ptr<FlowProcess> m_process; // of the present or last run
    std::unique_ptr<ResultKeeper> m_kept;   // while a run is under way
    std::unique_ptr<ResultWatcher> m_watcher;
    QString m_netlist; // that is watched
    Status m_status = Idle;
    bool m_stopping = false;
    bool m_watching = true;
};

} // namespace TE
