#include "te/flowmanager.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/qutil/eventbus.h"
#include "host/te/flowcontrol.h"
#include "host/te/flowprocess.h"
#include "host/te/resultkeeper.h"
#include "host/te/resultwatcher.h"
#include "qutil/ievent.h"
#include "te/constants.h"
#include "te/taskengine.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace TE {

namespace {

QString netlistFile()
{
    const auto *project = Core::ProjectFile::current();
    return project ? project->resultFile(QLatin1String(RES_NETLIST)) : QString();
}

} // namespace

FlowManager::FlowManager(FlowControl *d)
    : d(d)
{
}

QString FlowManager::resultFile(const QString &key) const
{
    return d->resultFile(key);
}

TaskEngine *TaskEngine::instance()
{
    static TaskEngine engine;
    return &engine;
}

FlowManager *TaskEngine::flowManager() const
{
    return FlowControl::get()->manager();
}

FlowControl *FlowControl::get()
{
    // Intentionally leaked, like every service that others refer to.
    static FlowControl *const self = new FlowControl;
    return self;
}

FlowControl::FlowControl()
    : m_manager(new FlowManager(this))
    , m_watcher(std::make_unique<ResultWatcher>())
{
    connect(m_watcher.get(), &ResultWatcher::replaced, this, &FlowControl::onResultReplaced);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &FlowControl::onProjectChanged);
    connect(m_watcher.get(), &ResultWatcher::unreadable, this, &FlowControl::onResultUnreadable);
    followProject();
    // Threads and processes end before the program does.
    qAddPostRoutine([] {
        get()->leave();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
}

FlowControl::~FlowControl()
{
    delete m_manager;
}

QString FlowControl::resultFile(const QString &key) const
{
    const auto *project = Core::ProjectFile::current();
    return project ? project->resultFile(key) : QString();
}

bool FlowControl::start(QString *error)
{
    const auto *project = Core::ProjectFile::current();
    QString cause;
    if (!project)
        cause = tr("There is no open project to synthesize.");
    else if (isRunning())
        cause = tr("Synthesis is already running.");
    else if (project->synthesisProgram().isEmpty())
        cause = tr("The project %1 has no synthesis command.").arg(project->name());
    if (!cause.isEmpty()) {
        if (error)
            *error = cause;
        return false;
    }
    m_stopping = false;
    m_watcher->setPaused(true);
    if (m_process)
        m_process.release()->deleteLater(); // its signal may be what this is called from
    m_kept = std::make_unique<ResultKeeper>(project->resultFiles());
    connect(m_kept.get(), &ResultKeeper::ready, this, &FlowControl::runCommand);
    setStatus(Running,
              tr("Synthesis started: %1")
                  .arg((QStringList(project->synthesisProgram()) + project->synthesisArguments())
                           .join(QLatin1Char(' '))));
    return true;
}

void FlowControl::runCommand(const QString &error)
{
    const auto *project = Core::ProjectFile::current();
    if (m_stopping || !error.isEmpty() || !project) {
        onProcessEnded(false, error);
        return;
    }
    m_process = std::make_unique<FlowProcess>();
    connect(m_process.get(), &FlowProcess::line, this, &FlowControl::output);
    connect(m_process.get(), &FlowProcess::ended, this, &FlowControl::onProcessEnded);
    m_process->start(project->synthesisProgram(), project->synthesisArguments(), project->folder());
}

void FlowControl::stop(int killAfter)
{
    if (!isRunning())
        return;
    m_stopping = true;
    if (m_process)
        m_process->stop(killAfter);
    else
        m_kept->cancel();
}

void FlowControl::setWatching(bool watching)
{
    m_watching = watching;
    m_watcher->setPaused(!watching || isRunning());
}

void FlowControl::onProcessEnded(bool ok, const QString &cause)
{
    const QString netlist = netlistFile();
    Status status = Failed;
    QString text;
    if (m_stopping) {
        status = Stopped;
        text = tr("Synthesis was stopped.");
    } else if (!ok) {
        text = tr("Synthesis failed: %1").arg(cause);
    } else if (!netlist.isEmpty() && !QFileInfo::exists(netlist)) {
        text = tr("Synthesis failed: it ended without an error, but did not write %1.")
                   .arg(QDir::toNativeSeparators(netlist));
    } else if (m_kept->isUnchanged(netlist)) {
        status = Idle;
        text = tr("The netlist %1 is up to date: the run did not write it.")
                   .arg(QDir::toNativeSeparators(netlist));
    } else {
        status = Finished;
        text = tr("Synthesis finished.");
        m_watcher->accept();
    }
    endRun(status == Finished || status == Idle);
    setStatus(status, text);
}

void FlowControl::endRun(bool keepResults)
{
    if (m_kept && !keepResults) {
        const QStringList problems = m_kept->restore();
        for (const QString &problem : problems)
            emit message(problem);
    }
    if (m_kept)
        m_kept.release()->deleteLater(); // its signal may be what this is called from
    m_watcher->setPaused(!m_watching);
}

void FlowControl::leave()
{
    if (m_process) {
        m_process->disconnect(this);
        m_process->end();
        m_process.release()->deleteLater();
    }
    if (m_kept)
        m_kept->disconnect(this);
    endRun(false);
    m_watcher->setFile(QString());
}

void FlowControl::followProject()
{
    m_netlist = netlistFile();
    m_watcher->setFile(m_netlist);
    if (const auto *project = Core::ProjectFile::current())
        connect(project, &Core::ProjectFile::changed, this, &FlowControl::onProjectEdited);
}

void FlowControl::onProjectChanged()
{
    // Closing a project ends its run.
    leave();
    followProject();
    if (m_status != Idle)
        setStatus(Idle, QString());
}

// Another netlist is as new to open views as one that a run has written.
void FlowControl::onProjectEdited()
{
    if (netlistFile() == m_netlist)
        return;
    m_netlist = netlistFile();
    m_watcher->setFile(m_netlist);
    if (!isRunning() && QFileInfo::exists(m_netlist)) {
        setStatus(Finished,
                  tr("The project's netlist is now %1.").arg(QDir::toNativeSeparators(m_netlist)));
    }
}

void FlowControl::onResultReplaced()
{
    if (!isRunning())
        setStatus(Finished,
                  tr("The netlist %1 was replaced.").arg(QDir::toNativeSeparators(netlistFile())));
}

void FlowControl::onResultUnreadable(const QString &reason)
{
    emit message(tr("%1 Another program has written the file; open configurations keep their "
                    "present netlist until it can be read.")
                     .arg(reason));
}

void FlowControl::setStatus(Status status, const QString &text)
{
    m_status = status;
    if (!text.isEmpty())
        emit message(text);
    emit statusChanged(status);
    QUtil::EventBus::get()->deliver(
        QUtil::IEvent(QStringLiteral("TE.Process.Status.Change"),
                      {{QStringLiteral("process"), QStringLiteral("Process.Syn")},
                       {QStringLiteral("status"), int(status)}}));
}

} // namespace TE
