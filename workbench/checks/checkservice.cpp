#include "workbench/checks/checkservice.h"

#include "config/environmentcodes.h"

#include "host/core/ifileopener.h"
#include "host/core/projectfile.h"
#include "host/nlsdata/readcontrol.h"
#include "host/te/deviceselection.h"
#include "host/te/worker.h"

#include "core/iview.h"
#include "core/viewmanager.h"
#include "qutil/eventmanager.h"
#include "qutil/ievent.h"
#include "te/constants.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Workbench {

namespace {

const QString STATUS_EVENT = QLatin1String(VLT::Environment::EVENT_PROCESS_STATUS);
const QString DEVICE_EVENT = QLatin1String(VLT::Environment::EVENT_DEVICE_CHANGE);

const QString SUFFIX = QStringLiteral("vlr");

} // namespace

CheckService::CheckService(QObject *parent)
    : QObject(parent)
{
    const Core::ViewManager *views = Core::ViewManager::instance();
    connect(views, &Core::ViewManager::viewActiveted, this, &CheckService::onViewActivated);
    connect(views, &Core::ViewManager::viewClosed, this, &CheckService::onViewClosed);
    for (const QString &type : {STATUS_EVENT, DEVICE_EVENT})
        QUtil::EventManager::instance()->subscribe(this, type);
}

CheckService::~CheckService()
{
    for (const QString &type : {STATUS_EVENT, DEVICE_EVENT})
        QUtil::EventManager::instance()->unsubscribe(this, type);
    if (m_worker && !m_running.recordNames)
        m_control->cancel();
    finishRecording();
    m_worker.reset();
}

void CheckService::finishRecording()
{
    if (m_worker && m_running.recordNames)
        m_worker->end();
    for (CheckJob &job : m_waiting) {
        if (job.recordNames)
            runChecks(job, m_design.get(), nullptr);
        job.recordNames = false;
    }
}

void CheckService::recheck(const QString &path)
{
    if (m_states.contains(path))
        schedule(path, false);
    emit changed();
}

void CheckService::keepScopes(const QString &path)
{
    if (!m_states.contains(path))
        return;
    schedule(path, false);
    // Nothing else starts a job between the two.
    CheckJob *job = m_worker && m_running.path == path && !m_isSuperseded ? &m_running : nullptr;
    for (CheckJob &waiting : m_waiting) {
        if (waiting.path == path)
            job = &waiting;
    }
    if (job)
        job->keepScopes = true;
    emit changed();
}

const CheckService::State *CheckService::state(const QString &path) const
{
    const auto it = m_states.constFind(path);
    return it == m_states.constEnd() ? nullptr : &*it;
}

CheckJob CheckService::jobFor(const QString &path)
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    return {path,
            project ? project->resultFile(QLatin1String(TE::RES_NETLIST)) : QString(),
            TE::DeviceSelection::get()->deviceID(),
            false,
            false,
            project ? project->activityScopes() : Check::KnownScopes()};
}

// Views handle the same events, and may run the event loop or close: check afterwards.
void CheckService::handleIEvent(const QUtil::IEvent *event)
{
    if (event->type() == STATUS_EVENT) {
        if (event->value(QLatin1String(VLT::Environment::VALUE_STATUS)).toInt() !=
            VLT::Environment::STATUS_FINISHED)
            return;
        m_design->drop();
    }
    QMetaObject::invokeMethod(this, &CheckService::scheduleAll, Qt::QueuedConnection);
}

void CheckService::onViewActivated(Core::IView *view)
{
    if (view && !m_views.contains(view)) {
        Core::IFileOpener *opener = Core::IFileOpener::forFile(QLatin1Char('.') + SUFFIX);
        const QString path = opener ? opener->filePath(view) : QString();
        if (QFileInfo(path).suffix().toLower() == SUFFIX) {
            m_views.insert(view, {path, Utils::FileStamp::of(path)});
            m_states[path].isModified = opener->isModified(path);
            connect(view, &Core::IView::shortTitleChanged, this,
                    [this, view] { onTitleChanged(view); });
            schedule(path, false);
        }
    }
    if (m_views.contains(view))
        m_current = m_views.value(view).path;
    emit changed();
}

void CheckService::onViewClosed(Core::IView *view)
{
    if (!m_views.contains(view))
        return;
    const QString path = m_views.take(view).path;
    m_states.remove(path);
    // What was saved last is still to be recorded.
    m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(),
                                   [&path](const CheckJob &job) {
                                       return job.path == path && !job.recordNames;
                                   }),
                    m_waiting.end());
    if (m_worker && m_running.path == path && !m_running.recordNames) {
        m_isSuperseded = true;
        m_control->cancel();
    }
    dropDesignWhenIdle();
    if (m_current == path)
        m_current.clear();
    emit changed();
}

void CheckService::onTitleChanged(Core::IView *view)
{
    OpenFile &file = m_views[view];
    State &state = m_states[file.path];
    state.isModified = Core::IFileOpener::forFile(file.path)->isModified(file.path);
    const Utils::FileStamp stamp = Utils::FileStamp::of(file.path);
    if (!state.isModified && stamp != file.stamp) {
        file.stamp = stamp;
        schedule(file.path, true);
    }
    emit changed();
}

void CheckService::schedule(const QString &path, bool isSaved)
{
    CheckJob job = jobFor(path);
    const Core::ProjectFile *project = Core::ProjectFile::current();
    job.recordNames = isSaved && project && project->recordsNames();
    job.keepScopes = isSaved;
    if (m_worker && m_running.path == path && !m_isSuperseded) {
        m_isSuperseded = true;
        m_control->cancel();
        // It may have ended before the record was written.
        job.recordNames = job.recordNames || m_running.recordNames;
        job.keepScopes = job.keepScopes || m_running.keepScopes;
    }
    const auto waiting =
        std::find_if(m_waiting.begin(), m_waiting.end(),
                     [&path](const CheckJob &candidate) { return candidate.path == path; });
    if (waiting != m_waiting.end()) {
        job.recordNames = job.recordNames || waiting->recordNames;
        job.keepScopes = job.keepScopes || waiting->keepScopes;
        *waiting = job;
    } else {
        m_waiting.append(job);
    }
    m_states[path].isWaiting = true;
    emit outdated(path);
    startNext();
}

void CheckService::scheduleAll()
{
    const auto files = m_views.values();
    for (const OpenFile &file : files)
        schedule(file.path, false);
    emit changed();
}

void CheckService::startNext()
{
    if (m_worker || m_waiting.isEmpty())
        return;
    m_running = m_waiting.takeFirst();
    m_isSuperseded = false;
    m_control = std::make_unique<NlsData::ReadControl>();
    m_worker = std::make_unique<TE::Worker>([this](const TE::Worker &) {
        m_result = runChecks(m_running, m_design.get(), m_control.get());
    });
    connect(m_worker.get(), &TE::Worker::done, this, &CheckService::onDone);
}

void CheckService::onDone()
{
    m_worker->end();
    m_worker.release()->deleteLater(); // it is its signal
    const QString path = m_running.path;
    const QString name = QDir::toNativeSeparators(path);
    if (!m_result.problem.isEmpty())
        emit failed(tr("%1: %2").arg(name, m_result.problem));
    if (!m_isSuperseded && m_states.contains(path)) {
        Core::ProjectFile *project = Core::ProjectFile::current();
        if (m_running.keepScopes && project)
            project->addActivityScopes(m_result.scopes);
        State &state = m_states[path];
        const QString before =
            state.isChecked ? summary(countsOf(state.result.findings)) : QString();
        state.result = std::move(m_result);
        state.isChecked = true;
        state.isWaiting = false;
        const QString text = summary(countsOf(state.result.findings));
        if (text != before)
            emit message(tr("Checks of %1: %2").arg(name, text));
        emit changed();
    }
    m_result = {};
    startNext();
    dropDesignWhenIdle();
}

void CheckService::dropDesignWhenIdle()
{
    if (m_views.isEmpty() && !m_worker)
        m_design->drop();
}

} // namespace Workbench
