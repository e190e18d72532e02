#include "te/flowmanager.h"

#include "host/core/project_p.h"
#include "host/core/projectmanager_p.h"
#include "host/qutil/eventmanager_p.h"
#include "host/te/flowmanager_p.h"
#include "host/te/flowprocess.h"
#include "host/te/resultwatcher.h"
#include "qutil/ievent.h"
#include "te/constants.h"
#include "te/taskengine.h"

#include <QDir>
#include <QFileInfo>

namespace TE {

namespace {

const Core::ProjectPrivate *currentProject()
{
    return Core::ProjectPrivate::of(Core::ProjectManagerPrivate::get()->current());
}

QString netlistFile()
{
    const auto *project = currentProject();
    return project ? project->resultFile(QLatin1String(RES_NETLIST)) : QString();
}

} // namespace

FlowManager::FlowManager(FlowManagerPrivate *d)
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
    return FlowManagerPrivate::get()->manager();
}

FlowManagerPrivate *FlowManagerPrivate::get()
{
    // Never destroyed, as every service that others refer to.
    static FlowManagerPrivate *const self = new FlowManagerPrivate;
    return self;
}

FlowManagerPrivate::FlowManagerPrivate()
    : m_manager(new FlowManager(this))
    , m_watcher(std::make_unique<ResultWatcher>())
{
    connect(m_watcher.get(), &ResultWatcher::replaced, this, &FlowManagerPrivate::onResultReplaced);
    connect(Core::ProjectManagerPrivate::get(), &Core::ProjectManagerPrivate::currentProjectChanged,
            this, &FlowManagerPrivate::onProjectChanged);
    m_watcher->setFile(netlistFile());
}

FlowManagerPrivate::~FlowManagerPrivate()
{
    delete m_manager;
}

QString FlowManagerPrivate::resultFile(const QString &key) const
{
    const auto *project = currentProject();
    return project ? project->resultFile(key) : QString();
}

bool FlowManagerPrivate::start(QString *error)
{
    const auto *project = currentProject();
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
    m_watcher->setPaused(true);
    m_stopping = false;
    m_process = std::make_unique<FlowProcess>();
    connect(m_process.get(), &FlowProcess::line, this, &FlowManagerPrivate::output);
    connect(m_process.get(), &FlowProcess::ended, this, &FlowManagerPrivate::onProcessEnded,
            Qt::QueuedConnection);
    setStatus(Running,
              tr("Synthesis started: %1")
                  .arg((QStringList(project->synthesisProgram()) + project->synthesisArguments())
                           .join(QLatin1Char(' '))));
    m_process->start(project->synthesisProgram(), project->synthesisArguments(), project->folder());
    return true;
}

void FlowManagerPrivate::stop(int killAfter)
{
    if (!isRunning())
        return;
    m_stopping = true;
    m_process->stop(killAfter);
}

void FlowManagerPrivate::onProcessEnded(bool ok, const QString &cause)
{
    if (sender() != m_process.get() || !isRunning())
        return;
    m_watcher->setPaused(false);
    const QString netlist = netlistFile();
    if (m_stopping)
        setStatus(Stopped, tr("Synthesis was stopped."));
    else if (!ok)
        setStatus(Failed, tr("Synthesis failed: %1").arg(cause));
    else if (!netlist.isEmpty() && !QFileInfo::exists(netlist))
        setStatus(Failed, tr("Synthesis failed: it ended without an error, but did not write %1.")
                              .arg(QDir::toNativeSeparators(netlist)));
    else
        setStatus(Finished, tr("Synthesis finished."));
}

void FlowManagerPrivate::onProjectChanged()
{
    m_process.reset(); // a run of the former project ends with it
    m_watcher->setPaused(false);
    m_watcher->setFile(netlistFile());
    if (m_status != Idle)
        setStatus(Idle, QString());
}

void FlowManagerPrivate::onResultReplaced()
{
    if (!isRunning())
        setStatus(Finished,
                  tr("The netlist %1 was replaced.").arg(QDir::toNativeSeparators(netlistFile())));
}

void FlowManagerPrivate::setStatus(Status status, const QString &text)
{
    m_status = status;
    if (!text.isEmpty())
        emit message(text);
    emit statusChanged(status);
    QUtil::EventManagerPrivate::get()->deliver(
        QUtil::IEvent(QStringLiteral("TE.Process.Status.Change"),
                      {{QStringLiteral("process"), QStringLiteral("Process.Syn")},
                       {QStringLiteral("status"), int(status)}}));
}

} // namespace TE
