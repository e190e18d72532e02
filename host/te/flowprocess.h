#pragma once

#include <QObject>
#include <QProcess>
#include <QTimer>

namespace TE {

/// A command that runs in a process group of its own, so that it can be ended together with all
/// that it started. For one run.
class FlowProcess : public QObject
{
    Q_OBJECT

public:
    FlowProcess();
    ~FlowProcess() override;

    /// A program given with a folder is looked for from `folder`, where it also runs.
    void start(const QString &program, const QStringList &arguments, const QString &folder);

    /// Asks all of the group to end; after `killAfter` ms ends them by force.
    void stop(int killAfter);

    /// Ends the group at once and says nothing; returns when the command is gone.
    void end();

signals:
    void line(const QString &text);

    /// Emitted once after start() has returned. `ok` when the command exited with 0; otherwise
    /// `cause` is the sentence that says why not.
    void ended(bool ok, const QString &cause);

private:
    /// QProcess whose child leads a process group.
    class Child : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    void onStarted();
    void readLines();
    void emitLine(const QByteArray &bytes);
    void onFinished(int exitCode, QProcess::ExitStatus status);
    void onError(QProcess::ProcessError error);
    void signalGroup(int signal);

    Child m_child;
    QTimer m_killTimer;
    QByteArray m_rest; // the beginning of a line that is not complete yet
    qint64 m_group = 0;
    bool m_stopping = false;
};

} // namespace TE
