#include "host/te/flowprocess.h"

#include <QDir>

#include <csignal>
#include <unistd.h>

namespace TE {

void FlowProcess::Child::setupChildProcess()
{
    ::setpgid(0, 0);
}

FlowProcess::FlowProcess()
{
    m_child.setProcessChannelMode(QProcess::MergedChannels);
    m_child.setStandardInputFile(QProcess::nullDevice());
    m_killTimer.setSingleShot(true);
    connect(&m_killTimer, &QTimer::timeout, this, [this] { signalGroup(SIGKILL); });
    connect(&m_child, &QProcess::readyRead, this, &FlowProcess::readLines);
    connect(&m_child, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &FlowProcess::onFinished);
    connect(&m_child, &QProcess::errorOccurred, this, &FlowProcess::onError);
}

FlowProcess::~FlowProcess()
{
    m_child.disconnect(this);
    if (m_child.state() == QProcess::NotRunning)
        return;
    signalGroup(SIGKILL);
    m_child.waitForFinished(1000);
}

void FlowProcess::start(const QString &program, const QStringList &arguments, const QString &folder)
{
    m_rest.clear();
    m_child.setWorkingDirectory(folder);
    m_child.start(program, arguments);
    m_group = m_child.processId();
}

void FlowProcess::stop(int killAfter)
{
    if (m_child.state() == QProcess::NotRunning)
        return;
    m_killTimer.start(killAfter);
    signalGroup(SIGTERM);
}

void FlowProcess::signalGroup(int signal)
{
    if (m_group > 0)
        ::kill(-static_cast<pid_t>(m_group), signal);
}

void FlowProcess::readLines()
{
    m_rest += m_child.readAll();
    int begin = 0;
    for (int end = 0; (end = m_rest.indexOf('\n', begin)) >= 0; begin = end + 1)
        emit line(QString::fromLocal8Bit(m_rest.mid(begin, end - begin)));
    m_rest.remove(0, begin);
}

void FlowProcess::onFinished(int exitCode, QProcess::ExitStatus status)
{
    readLines();
    if (!m_rest.isEmpty())
        emit line(QString::fromLocal8Bit(m_rest));
    m_rest.clear();
    // What the command left behind has no business any more.
    m_killTimer.stop();
    signalGroup(SIGKILL);
    m_group = 0;
    const QString program = QDir::toNativeSeparators(m_child.program());
    if (status == QProcess::CrashExit)
        emit ended(false, tr("%1 was ended by a signal.").arg(program));
    else if (exitCode != 0)
        emit ended(false,
                   tr("%1 ended with the exit code %2.").arg(program, QString::number(exitCode)));
    else
        emit ended(true, QString());
}

void FlowProcess::onError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return; // finished() follows
    const QString program = QDir::toNativeSeparators(m_child.program());
    emit ended(false, tr("%1 could not be started: %2").arg(program, m_child.errorString()));
}

} // namespace TE
