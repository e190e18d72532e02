#include "workbench/projects/netlistopener.h"

#include "workbench/documents.h"
#include "workbench/projects/designfamily.h"
#include "workbench/projects/projectcommands.h"
#include "workbench/projects/projectsettings.h"

#include "host/core/projectfile.h"
#include "host/nlsdata/netlistreaddialog.h"
#include "host/nlsdata/netlistsummary.h"
#include "host/nlsdata/readcontrol.h"
#include "host/utils/documentpath.h"

#include "core/project.h"
#include "te/constants.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>

#include <memory>

namespace Workbench {

namespace {

constexpr int DIALOG_DELAY = 300; // ms

/// The project in the netlist's folder that names it as its result; empty if none or several do.
QString projectWith(const QString &netlist)
{
    const QFileInfoList files =
        QFileInfo(netlist).absoluteDir().entryInfoList({QStringLiteral("*.fpgaproj")}, QDir::Files);
    QStringList found;
    for (const QFileInfo &file : files) {
        const std::unique_ptr<Core::Project> project =
            Core::ProjectFile::load(file.filePath(), nullptr);
        const auto *data = Core::ProjectFile::of(project.get());
        if (data &&
            QFileInfo(data->resultFile(QLatin1String(TE::RES_NETLIST))) == QFileInfo(netlist))
            found.append(file.filePath());
    }
    return found.size() == 1 ? found.first() : QString();
}

ProjectSettings settingsFor(const QString &netlist, const NlsData::NetlistSummary &summary,
                            QString *remark)
{
    ProjectSettings result;
    result.top = summary.top;
    result.name = summary.top;
    result.name.replace(QLatin1Char('/'), QLatin1Char('_'));
    result.netlist = Utils::documentPath(netlist);
    result.folder = QFileInfo(result.netlist).path();
    if (const DesignFamily *family = familyOfCells(summary.cellTypes)) {
        result.device = QLatin1String(family->device);
        *remark = NetlistOpener::tr("The cells of the netlist are %1. Choose your part if it is "
                                    "another one.")
                      .arg(QLatin1String(family->name));
    }
    return result;
}

} // namespace

NetlistOpener::NetlistOpener(Documents *documents, ProjectCommands *projects, QWidget *window)
    : QObject(window)
    , m_documents(documents)
    , m_projects(projects)
    , m_window(window)
{
}

void NetlistOpener::open(const QString &path)
{
    const QString project = projectWith(path);
    if (project.isEmpty())
        return propose(path);
    const QPointer<NetlistOpener> self(this);
    if (m_documents->openProject(project) && self) {
        emit message(
            tr("Opened %1, the project of this netlist.").arg(QDir::toNativeSeparators(project)));
    }
}

void NetlistOpener::propose(const QString &path)
{
    NlsData::ReadControl control;
    NlsData::NetlistSummary summary;
    QString error;
    bool isRead = false;
    const auto read = [&] {
        isRead = NlsData::readNetlistSummary(path, &summary, &error, &control);
    };
    const QPointer<NetlistOpener> self(this);
    const bool wanted = NlsData::readWithDialog(m_window, path, &control, read, DIALOG_DELAY);
    if (!wanted || !self)
        return;
    if (!isRead) {
        emit message(tr("%1 It is opened as text.").arg(error));
        m_documents->openText(path);
        return;
    }
    QString remark;
    const ProjectSettings settings = settingsFor(path, summary, &remark);
    m_projects->createProject(settings, remark);
}

} // namespace Workbench
