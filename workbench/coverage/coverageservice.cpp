#include "workbench/coverage/coverageservice.h"

#include "workbench/checks/checkservice.h"

#include "host/core/projectfile.h"
#include "host/nlsdata/readcontrol.h"
#include "host/te/worker.h"

namespace Workbench {

CoverageService::CoverageService(CheckService *checks)
    : QObject(checks)
    , m_checks(checks)
{
    connect(checks, &CheckService::changed, this, &CoverageService::onChecksChanged);
    connect(checks, &CheckService::outdated, this, &CoverageService::onOutdated);
}

CoverageService::~CoverageService()
{
    if (m_control)
        m_control->cancel();
    m_worker.reset();
}

QString CoverageService::current() const
{
    return m_checks->current();
}

const CoverageService::State *CoverageService::state() const
{
    const auto state = m_states.constFind(current());
    return state == m_states.constEnd() ? nullptr : &*state;
}

bool CoverageService::isModified() const
{
    const CheckService::State *state = m_checks->state(current());
    return state && state->isModified;
}

int CoverageService::permille() const
{
    return m_control ? m_control->permille() : 0;
}

void CoverageService::setWatched(bool watched)
{
    m_isWatched = watched;
    startNext();
}

void CoverageService::countToggles()
{
    const auto state = m_states.find(current());
    if (state == m_states.end() || state->isCounting)
        return;
    if (m_running == current())
        supersede();
    state->wantsCount = true;
    state->isStopped = false;
    startNext();
    emit changed();
}

void CoverageService::stop()
{
    const auto state = m_states.find(current());
    if (state == m_states.end() || !state->isCounting)
        return;
    state->wantsCount = false;
    state->isStopped = true;
    supersede();
    emit changed();
}

/// The run ends as soon as it can, and its result is dropped.
void CoverageService::supersede()
{
    m_isSuperseded = true;
    m_control->cancel();
}

void CoverageService::onChecksChanged()
{
    for (auto state = m_states.begin(); state != m_states.end();) {
        if (m_checks->state(state.key())) {
            ++state;
            continue;
        }
        if (m_worker && m_running == state.key())
            supersede();
        state = m_states.erase(state);
    }
    if (!current().isEmpty())
        m_states[current()];
    else if (m_states.isEmpty() && !m_worker)
        m_store = {};
    startNext();
    emit changed();
}

void CoverageService::onOutdated(const QString &path)
{
    State &state = m_states[path];
    state.isStale = true;
    if (m_worker && m_running == path)
        supersede();
    // Until somebody looks, it would keep a netlist for nothing.
    if (!m_isWatched)
        state.result = {};
}

void CoverageService::startNext()
{
    const auto state = m_states.find(current());
    if (!m_isWatched || state == m_states.end() || !(state->isStale || state->wantsCount))
        return;
    if (m_worker) {
        // Another configuration's toggles are counted to the end, since they were asked for.
        if (m_running != current() && !m_states.value(m_running).isCounting)
            supersede();
        return;
    }
    m_running = current();
    m_isSuperseded = false;
    m_control = std::make_unique<NlsData::ReadControl>();
    const bool count = state->wantsCount;
    m_wasStale = state->isStale;
    state->isStale = false;
    state->isRunning = true;
    state->isCounting = count;
    const CheckJob job = CheckService::jobFor(m_running);
    const auto design = m_checks->sharedDesign();
    m_worker = std::make_unique<TE::Worker>([this, job, count, design](const TE::Worker &) {
        m_result = runCoverage(job, count, design.get(), &m_store, m_control.get());
    });
    connect(m_worker.get(), &TE::Worker::done, this, &CoverageService::onDone);
}

void CoverageService::onDone()
{
    m_worker->end();
    m_worker.release()->deleteLater(); // it is its signal
    const auto state = m_states.find(m_running);
    if (state != m_states.end()) {
        const bool isCounted = state->isCounting && !m_isSuperseded;
        state->isRunning = state->isCounting = false;
        state->isStale = state->isStale || (m_isSuperseded && m_wasStale);
        if (!m_isSuperseded)
            state->result = m_result;
        if (isCounted)
            state->wantsCount = false;
        Core::ProjectFile *project = Core::ProjectFile::current();
        if (isCounted && m_result.data && project)
            project->addActivityScopes(m_result.data->coverage.foundScopes(*m_result.data->tree));
    }
    m_result = {};
    m_running.clear();
    m_control.reset();
    startNext();
    emit changed();
}

} // namespace Workbench
