#include "workbench/cli/designoptions.h"

#include "check/names/designnames.h"
#include "host/core/projectfile.h"
#include "host/nlsdata/readnetlist.h"
#include "workbench/cli/command.h"

#include "core/project.h"
#include "nlsdata/netlist.h"
#include "te/constants.h"

#include <QCommandLineParser>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cstdio>

namespace Workbench {

DesignOptions::DesignOptions(QCommandLineParser *parser)
    : m_parser(parser)
    , m_project(QStringLiteral("project"),
                QStringLiteral("Take device and netlist from the project FILE instead of the only "
                               "project in the configuration's folder."),
                QStringLiteral("FILE"))
    , m_netlist(QStringLiteral("netlist"), QStringLiteral("Use the netlist FILE.json."),
                QStringLiteral("FILE.json"))
    , m_device(QStringLiteral("device"),
               QStringLiteral("Use the device with this ID from the catalogue."),
               QStringLiteral("ID"))
{
    parser->addOptions({m_project, m_netlist, m_device});
}

const Check::DesignInput &DesignOptions::designFor(const QString &path)
{
    const QString project = projectFor(path);
    const auto known = m_designs.constFind(project);
    if (known != m_designs.constEnd())
        return *known;
    Check::DesignInput design;
    if (!project.isEmpty())
        readProject(project, &design);
    if (m_parser->isSet(m_device))
        design.device = m_parser->value(m_device);
    if (m_parser->isSet(m_netlist))
        design.netlistPath = m_parser->value(m_netlist);
    readNetlist(&design);
    return *m_designs.insert(project, design);
}

/// As in the window: the only project in the folder is meant.
QString DesignOptions::projectFor(const QString &path) const
{
    if (m_parser->isSet(m_project))
        return m_parser->value(m_project);
    const QDir folder = QFileInfo(path).dir();
    const QStringList projects = folder.entryList({QStringLiteral("*.fpgaproj")}, QDir::Files);
    return projects.size() == 1 ? QDir::cleanPath(folder.filePath(projects.first())) : QString();
}

void DesignOptions::readProject(const QString &project, Check::DesignInput *design)
{
    QString error;
    const std::unique_ptr<Core::Project> read = Core::ProjectFile::load(project, &error);
    if (!read) {
        fail(project, error);
        return;
    }
    addInput(project);
    const Core::ProjectFile *file = Core::ProjectFile::of(read.get());
    design->device = file->device();
    design->scopes = file->activityScopes();
    const QString netlist = file->resultFile(QLatin1String(TE::RES_NETLIST));
    // As given where it was given relative to a relative path: reports are the same everywhere.
    design->netlistPath = QFileInfo(project).isRelative() && !netlist.isEmpty()
                              ? QDir::current().relativeFilePath(netlist)
                              : netlist;
}

void DesignOptions::readNetlist(Check::DesignInput *design)
{
    if (design->netlistPath.isEmpty()) {
        m_complete = false;
        return;
    }
    QString error;
    NlsData::ReadOptions options;
    options.allNames = true;
    options.sha256 = &design->netlistSha256;
    design->netlist = NlsData::readNetlist(design->netlistPath, &error, options);
    if (!design->netlist) {
        fail(design->netlistPath, error);
        return;
    }
    design->names = std::make_shared<Check::DesignNames>(*design->netlist);
    m_inputs.append({design->netlistPath, design->netlistSha256});
}

int DesignOptions::reportFailures(const char *command) const
{
    if (m_findings.isEmpty())
        std::fprintf(stderr,
                     "workbench %s: there is no netlist: give --netlist or --project, or put one "
                     "project into the folder of the file.\n",
                     command);
    for (const Check::Finding &finding : m_findings)
        std::fprintf(stderr, "workbench %s: %s: %s\n", command, qPrintable(finding.file),
                     qPrintable(finding.message));
    return Unreadable;
}

void DesignOptions::addInput(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (file.open(QIODevice::ReadOnly) && hash.addData(&file))
        m_inputs.append({path, hash.result().toHex()});
}

void DesignOptions::fail(const QString &path, const QString &message)
{
    m_complete = false;
    m_inputs.append({path, QByteArray()});
    m_findings.append(
        {Check::findRule(QStringLiteral("not-readable")), path, 0, {}, 0, {}, message});
}

} // namespace Workbench
