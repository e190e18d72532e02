#include "workbench/projecttree.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/dev/devicecatalogue.h"
#include "host/te/deviceselection.h"

#include "core/project.h"
#include "te/constants.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QTextDocument>

namespace Workbench {

namespace {

enum Role {
    PathRole = Qt::UserRole,
    IsDeviceRole,
    IsProjectFileRole, // listed under the project's files, so that it can be taken out
};

Core::ProjectFile *currentProject()
{
    const Core::Project *project = Core::ProjectSession::get()->current();
    return project ? Core::ProjectFile::of(project) : nullptr;
}

// Tool tips take what looks like markup for markup.
QString plainToolTip(const QString &path)
{
    const QString text = QDir::toNativeSeparators(path);
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

ProjectTree::ProjectTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("projectTree"));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeWidget::itemActivated, this, &ProjectTree::onItemActivated);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &ProjectTree::onProjectChanged);
    onProjectChanged();
}

void ProjectTree::onProjectChanged()
{
    if (Core::ProjectFile *project = currentProject())
        connect(project, &Core::ProjectFile::changed, this, &ProjectTree::rebuild);
    rebuild();
}

void ProjectTree::rebuild()
{
    const QString selected =
        currentItem() ? currentItem()->data(0, PathRole).toString() : QString();
    clear();
    const Core::ProjectFile *project = currentProject();
    if (!project) {
        auto *hint = new QTreeWidgetItem(this, {tr("No project is open")});
        hint->setFlags(Qt::NoItemFlags);
        return;
    }

    auto *root = new QTreeWidgetItem(this, {project->name()});
    root->setIcon(0, icon(QStyle::SP_DirIcon));
    root->setToolTip(0, plainToolTip(project->path()));
    QFont bold = font();
    bold.setBold(true);
    root->setFont(0, bold);

    const QString id = TE::DeviceSelection::get()->deviceID();
    auto *device = new QTreeWidgetItem(
        root, {id.isEmpty() ? tr("No device chosen") : tr("Device: %1").arg(id)});
    device->setIcon(0, icon(QStyle::SP_ComputerIcon));
    device->setData(0, IsDeviceRole, true);

    addFiles(root, tr("Files"), project->files());
    addFiles(root, tr("Sources"), project->sources());
    const QString netlist = project->resultFile(QLatin1String(TE::RES_NETLIST));
    addFiles(root, tr("Results"), netlist.isEmpty() ? QStringList() : QStringList(netlist));
    expandAll();

    for (QTreeWidgetItemIterator it(this); *it && !selected.isEmpty(); ++it) {
        if ((*it)->data(0, PathRole).toString() == selected)
            setCurrentItem(*it);
    }
}

QIcon ProjectTree::icon(QStyle::StandardPixmap which)
{
    QIcon &icon = m_icons[which];
    if (icon.isNull())
        icon = style()->standardIcon(which);
    return icon;
}

void ProjectTree::addFiles(QTreeWidgetItem *root, const QString &title, const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    auto *group = new QTreeWidgetItem(root, {title});
    group->setIcon(0, icon(QStyle::SP_DirOpenIcon));
    const bool removable = title == tr("Files");
    for (const QString &path : paths)
        addFile(group, path)->setData(0, IsProjectFileRole, removable);
}

QTreeWidgetItem *ProjectTree::addFile(QTreeWidgetItem *parent, const QString &path)
{
    auto *item = new QTreeWidgetItem(parent, {QFileInfo(path).fileName()});
    item->setIcon(0, icon(QStyle::SP_FileIcon));
    item->setData(0, PathRole, path);
    item->setToolTip(0, plainToolTip(path));
    if (!QFileInfo::exists(path)) {
        item->setForeground(0, palette().brush(QPalette::Disabled, QPalette::Text));
        item->setToolTip(0, tr("%1 does not exist").arg(plainToolTip(path)));
    }
    return item;
}

void ProjectTree::onItemActivated(QTreeWidgetItem *item)
{
    // The receiver may rebuild the tree.
    const QString path = item->data(0, PathRole).toString();
    if (item->data(0, IsDeviceRole).toBool())
        emit deviceActivated();
    else if (!path.isEmpty())
        emit fileActivated(path);
    else
        item->setExpanded(!item->isExpanded());
}

void ProjectTree::contextMenuEvent(QContextMenuEvent *event)
{
    const QTreeWidgetItem *item = itemAt(event->pos());
    const QString path = item ? item->data(0, PathRole).toString() : QString();
    if (path.isEmpty())
        return;
    const bool removable = item->data(0, IsProjectFileRole).toBool();
    QMenu menu;
    const QAction *open = menu.addAction(tr("&Open"));
    QAction *remove = menu.addAction(tr("&Remove from project"));
    remove->setEnabled(removable);
    const QAction *chosen = menu.exec(event->globalPos());
    if (!chosen)
        return;
    if (chosen == open)
        emit fileActivated(path);
    else if (Core::ProjectFile *project = currentProject())
        project->removeFile(path);
}

} // namespace Workbench
