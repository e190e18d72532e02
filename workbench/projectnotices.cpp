#include "workbench/projectnotices.h"

#include "workbench/opencause.h"
#include "workbench/panes/messagespane.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/nlsdata/netlistnotices.h"

namespace Workbench {

ProjectNotices::ProjectNotices(MessagesPane *messages, QObject *parent)
    : QObject(parent)
    , m_messages(messages)
{
    const auto *netlists = NlsData::NetlistNotices::get();
    connect(netlists, &NlsData::NetlistNotices::unreadable, m_messages, &MessagesPane::fail);
    connect(netlists, &NlsData::NetlistNotices::ambiguous, m_messages, &MessagesPane::fail);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &ProjectNotices::onProjectChanged);
}

void ProjectNotices::onProjectChanged()
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    const QString path = project ? project->path() : QString();
    if (path == m_project)
        return;
    if (!m_project.isEmpty())
        m_messages->endProject();
    m_project = path;
    if (!project)
        return;
    m_messages->beginProject(project->folder());
    const QString problem = deviceProblem();
    if (!problem.isEmpty())
        m_messages->fail(problem);
}

} // namespace Workbench
