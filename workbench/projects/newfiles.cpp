#include "workbench/projects/newfiles.h"

#include "workbench/documents.h"
#include "workbench/projects/projectcommands.h"

#include "host/core/projectfile.h"
#include "host/core/viewarea.h"
#include "host/extsys/pluginmanager.h"
#include "host/utils/dialogs.h"

#include "core/iview.h"
#include "core/iwizardfactory.h"
#include "te/constants.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <QPushButton>

namespace Workbench {

namespace {

QList<Core::IWizardFactory *> wizards()
{
    return ExtSys::PluginManager::instance()->objects<Core::IWizardFactory>();
}

} // namespace

NewFiles::NewFiles(Documents *documents, ProjectCommands *projects, QWidget *window)
    : QObject(window)
    , m_documents(documents)
    , m_projects(projects)
    , m_window(window)
{
}

void NewFiles::fill(QMenu *menu, QAction *before)
{
    const auto all = wizards();
    for (int i = 0; i < all.size(); ++i) {
        auto *action = new QAction(all.at(i)->icon(), all.at(i)->displayName(), menu);
        action->setObjectName(all.at(i)->id());
        action->setStatusTip(all.at(i)->description());
        connect(action, &QAction::triggered, this, [this, i] { run(i); });
        menu->insertAction(before, action);
    }
}

void NewFiles::createConfiguration()
{
    run(0);
}

void NewFiles::run(int wizard)
{
    const QPointer<NewFiles> self(this);
    if (!Core::ProjectFile::current() && (!askForProject() || !self))
        return;
    const auto all = wizards();
    if (wizard >= all.size())
        return;
    const Core::ProjectFile *project = Core::ProjectFile::current();
    QStringList files;
    QObject listening;
    if (project) {
        connect(project, &Core::ProjectFile::fileAdded, &listening,
                [&files](const QString &path) { files.append(path); });
    }
    all.at(wizard)->runWizard(m_window, project ? project->folder() : QString());
    for (const QString &path : qAsConst(files)) {
        if (self)
            show(path);
    }
}

// False if the user cancels.
bool NewFiles::askForProject()
{
    Utils::GuardedDialog box(new QMessageBox(
        QMessageBox::Question, tr("No Project"),
        tr("A configuration takes its device and its netlist from a project, and no project is "
           "open."),
        QMessageBox::Cancel, m_window));
    auto *create = box->addButton(tr("&New Project\u2026"), QMessageBox::AcceptRole);
    auto *without = box->addButton(tr("&Without Project"), QMessageBox::DestructiveRole);
    box->setDefaultButton(create);
    box.exec();
    if (!box.get())
        return false;
    if (box->clickedButton() == create)
        return m_projects->createFromFolder();
    return box->clickedButton() == without;
}

void NewFiles::show(const QString &path)
{
    emit added(path);
    const Core::ProjectFile *project = Core::ProjectFile::current();
    if (!project)
        return;
    QString missing;
    const QString netlist = project->resultFile(QLatin1String(TE::RES_NETLIST));
    if (project->device().isEmpty())
        missing = tr("Choose the project's device to open it.");
    else if (netlist.isEmpty())
        missing = tr("Name the project's netlist in its settings to open it.");
    else if (!QFileInfo::exists(netlist))
        missing = tr("Run synthesis to write the netlist %1, then open it.")
                      .arg(QDir::toNativeSeparators(netlist));
    if (!missing.isEmpty()) {
        emit message(tr("%1 is in the project. %2").arg(QFileInfo(path).fileName(), missing));
        return;
    }
    m_documents->open(path);
    if (Core::IView *view = Core::ViewArea::get()->activeView())
        view->setFocus();
}

} // namespace Workbench
