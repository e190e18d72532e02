#pragma once

#include <QObject>
#include <QProcess>
#include <QTimer>

namespace TE {

/// A command that runs in its own process group, so that it can be ended together with its child
/// processes. For one run.
class FlowProcess : public QObject
{
    Q_OBJECT

public:
    FlowProcess();
    ~FlowProcess() override;

    /// Runs in `folder`; a program with a relative path is resolved there, too.
    void start(const QString &program, const QStringList &arguments, const QString &folder);

    /// Asks the group to end; kills it after `killAfter` ms.
    void stop(int killAfter);

    /// Kills the group without emitting ended(); returns when the command has ended.
    void end();

signals:
    void line(const QString &text);

    /// Emitted once, after start() has returned. `ok` if the command exited with 0; otherwise
    /// `cause` is one sentence with the reason.
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
    QByteArray m_rest; // the beginning of an incomplete line
    qint64 m_group = 0;
    bool m_stopping = false;
};

} // namespace TE
