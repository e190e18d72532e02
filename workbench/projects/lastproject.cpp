#include "workbench/projects/lastproject.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"

#include <QAction>
#include <QFileInfo>
#include <QSettings>

namespace Workbench {

namespace {

const QString PATH_KEY = QStringLiteral("lastProject/path");
const QString OPTION_KEY = QStringLiteral("lastProject/open");

} // namespace

LastProject::LastProject(QObject *parent)
    : QObject(parent)
    , m_option(new QAction(tr("Open last project at &start"), this))
{
    m_option->setObjectName(QStringLiteral("openLastProject"));
    m_option->setStatusTip(tr("Open the project of the last session when the program starts"));
    m_option->setCheckable(true);
    m_option->setChecked(QSettings().value(OPTION_KEY, true).toBool());
    connect(m_option, &QAction::toggled, this,
            [](bool on) { QSettings().setValue(OPTION_KEY, on); });
    // The program also closes the project when it ends, which does not count.
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this, [] {
        if (const Core::ProjectFile *project = Core::ProjectFile::current())
            QSettings().setValue(PATH_KEY, project->path());
    });
}

QString LastProject::path() const
{
    const QString path = QSettings().value(PATH_KEY).toString();
    return m_option->isChecked() && QFileInfo::exists(path) ? path : QString();
}

void LastProject::forget()
{
    QSettings().remove(PATH_KEY);
}

} // namespace Workbench
