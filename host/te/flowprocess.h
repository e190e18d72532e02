#pragma once

#include <QObject>
#include <QProcess>
#include <QTimer>

namespace TE {

/// A command that runs in a process group of its own, so that it can be ended together with all
/// that it started.
class FlowProcess : public QObject
{
    Q_OBJECT

public:
    FlowProcess();
    ~FlowProcess() override;

    void start(const QString &program, const QStringList &arguments, const QString &folder);
    void stop(int killAfter);

signals:
    void line(const QString &text);

    /// Emitted once for each start(). `ok` when the command exited with 0; otherwise `cause` is
    /// the sentence that says why not.
    void ended(bool ok, const QString &cause);

private:
    /// QProcess whose child leads a process group.
    class Child : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    void readLines();
    void onFinished(int exitCode, QProcess::ExitStatus status);
    void onError(QProcess::ProcessError error);
    void signalGroup(int signal);

    Child m_child;
    QTimer m_killTimer;
    QByteArray m_rest; // the begin of a line that is not complete yet
    qint64 m_group = 0;
};

} // namespace TE
