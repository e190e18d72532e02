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
    // Never destroyed, as every service that others refer to.
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
    m_watcher->setFile(netlistFile());
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
        cause = tr("There is no open project to synthesise.");
    else if (isRunning())
        cause = tr("Synthesis is running already.");
    else if (project->synthesisProgram().isEmpty())
        cause = tr("The project %1 has no synthesis command.").arg(project->name());
    if (!cause.isEmpty()) {
        if (error)
            *error = cause;
        return false;
    }
    auto kept = std::make_unique<ResultKeeper>();
    if (!kept->keep(project->resultFiles(), error ? error : &cause))
        return false;
    m_kept = std::move(kept);
    m_watcher->setPaused(true);
    m_stopping = false;
    if (m_process)
        m_process.release()->deleteLater(); // it may be the one that tells of its end
    m_process = std::make_unique<FlowProcess>();
    connect(m_process.get(), &FlowProcess::line, this, &FlowControl::output);
    connect(m_process.get(), &FlowProcess::ended, this, &FlowControl::onProcessEnded);
    const QStringList command =
        QStringList(project->synthesisProgram()) + project->synthesisArguments();
    m_process->start(command.first(), command.mid(1), project->folder());
    setStatus(Running, tr("Synthesis started: %1").arg(command.join(QLatin1Char(' '))));
    return true;
}

void FlowControl::stop(int killAfter)
{
    if (!isRunning())
        return;
    m_stopping = true;
    m_process->stop(killAfter);
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
    } else {
        status = Finished;
        text = tr("Synthesis finished.");
    }
    endRun(status == Finished);
    setStatus(status, text);
}

void FlowControl::endRun(bool keepResults)
{
    if (m_kept && !keepResults)
        m_kept->restore();
    m_kept.reset();
    m_watcher->setPaused(!m_watching);
}

void FlowControl::onProjectChanged()
{
    // A run of the former project ends with it.
    if (m_process) {
        m_process->disconnect(this);
        m_process->end();
        m_process.release()->deleteLater();
    }
    endRun(false);
    m_watcher->setFile(netlistFile());
    if (m_status != Idle)
        setStatus(Idle, QString());
}

void FlowControl::onResultReplaced()
{
    if (!isRunning())
        setStatus(Finished,
                  tr("The netlist %1 was replaced.").arg(QDir::toNativeSeparators(netlistFile())));
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
