#include "host/te/flowprocess.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <csignal>
#include <unistd.h>

namespace TE {

namespace {

constexpr int LONGEST_LINE = 65536; // bytes; more is shown in pieces

} // namespace

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
    connect(&m_child, &QProcess::started, this, &FlowProcess::onStarted);
    connect(&m_child, &QProcess::readyRead, this, &FlowProcess::readLines);
    connect(&m_child, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            &FlowProcess::onFinished);
    connect(&m_child, &QProcess::errorOccurred, this, &FlowProcess::onError);
}

FlowProcess::~FlowProcess()
{
    end();
}

void FlowProcess::end()
{
    m_child.disconnect(this);
    if (m_child.state() == QProcess::NotRunning)
        return;
    signalGroup(SIGKILL);
    m_child.waitForFinished(1000);
    m_group = 0;
}

void FlowProcess::start(const QString &program, const QStringList &arguments, const QString &folder)
{
    const bool hasFolder = program.contains(QLatin1Char('/'));
    m_child.setWorkingDirectory(folder);
    m_child.start(hasFolder ? QDir(folder).absoluteFilePath(program) : program, arguments);
    m_group = m_child.processId();
    // The child does the same; either way the group exists from here on.
    if (m_group > 0)
        ::setpgid(static_cast<pid_t>(m_group), static_cast<pid_t>(m_group));
}

void FlowProcess::stop(int killAfter)
{
    if (m_child.state() == QProcess::NotRunning)
        return;
    m_stopping = true;
    m_killTimer.start(killAfter);
    // Before it runs the command, the child still has this program's signal handlers.
    if (m_child.state() == QProcess::Running)
        signalGroup(SIGTERM);
}

void FlowProcess::onStarted()
{
    if (m_stopping)
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
        emitLine(m_rest.mid(begin, end - begin));
    m_rest.remove(0, begin);
    if (m_rest.size() > LONGEST_LINE) {
        emitLine(m_rest);
        m_rest.clear();
    }
}

void FlowProcess::emitLine(const QByteArray &bytes)
{
    QString text = QString::fromLocal8Bit(bytes);
    if (text.endsWith(QLatin1Char('\r')))
        text.chop(1);
    emit line(text);
}

void FlowProcess::onFinished(int exitCode, QProcess::ExitStatus status)
{
    readLines();
    if (!m_rest.isEmpty())
        emitLine(m_rest);
    m_killTimer.stop();
    if (m_stopping)
        signalGroup(SIGKILL); // processes that outlived their leader
    m_group = 0;
    const QString program = QDir::toNativeSeparators(m_child.program());
    if (status == QProcess::CrashExit)
        emit ended(false, tr("%1 crashed or was ended by a signal.").arg(program));
    else if (exitCode != 0)
        emit ended(false,
                   tr("%1 ended with exit code %2.").arg(program, QString::number(exitCode)));
    else
        emit ended(true, QString());
}

void FlowProcess::onError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return; // finished() follows
    const QString program = m_child.program();
    QString cause;
    if (!QFileInfo(m_child.workingDirectory()).isDir())
        cause = tr("the folder %1 does not exist.")
                    .arg(QDir::toNativeSeparators(m_child.workingDirectory()));
    else if (QStandardPaths::findExecutable(program).isEmpty() && !QFileInfo::exists(program))
        cause = tr("the program %1 was not found; is it installed?")
                    .arg(QDir::toNativeSeparators(program));
    else
        cause = tr("the program %1 could not be started: %2.")
                    .arg(QDir::toNativeSeparators(program), m_child.errorString());
    QTimer::singleShot(0, this, [this, cause] { emit ended(false, cause); });
}

} // namespace TE
