#include "workbench/projecttree.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/dev/devicecatalogue.h"
#include "host/te/deviceselection.h"
#include "host/te/flowcontrol.h"

#include "te/constants.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <QTextDocument>

namespace Workbench {

namespace {

enum Role {
    PathRole = Qt::UserRole,
    IsDeviceRole,
    IsProjectFileRole, // listed under the project's files, hence removable
};

// Tool tips would interpret markup in names.
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
    setAccessibleName(tr("Project"));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle);
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeWidget::itemActivated, this, &ProjectTree::onItemActivated);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &ProjectTree::onProjectChanged);
    // A run may have written a result for the first time.
    connect(TE::FlowControl::get(), &TE::FlowControl::statusChanged, this,
            &ProjectTree::updateExistence);
    onProjectChanged();
}

void ProjectTree::onProjectChanged()
{
    if (Core::ProjectFile *project = Core::ProjectFile::current())
        connect(project, &Core::ProjectFile::changed, this, &ProjectTree::rebuild);
    rebuild();
}

void ProjectTree::rebuild()
{
    const QString selected =
        currentItem() ? currentItem()->data(0, PathRole).toString() : QString();
    clear();
    const Core::ProjectFile *project = Core::ProjectFile::current();
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
    auto *device = new QTreeWidgetItem(root, {id.isEmpty() ? tr("No device chosen") : id});
    device->setIcon(0, icon(QStyle::SP_ComputerIcon));
    device->setToolTip(0, plainToolTip(tr("The project's device: %1").arg(id)));
    device->setData(0, IsDeviceRole, true);

    addFiles(root, tr("Files"), project->files(), true);
    addFiles(root, tr("Sources"), project->sources());
    const QString netlist = project->resultFile(QLatin1String(TE::RES_NETLIST));
    addFiles(root, tr("Results"), netlist.isEmpty() ? QStringList() : QStringList(netlist));
    expandAll();

    select(selected);
}

void ProjectTree::select(const QString &path)
{
    for (QTreeWidgetItemIterator it(this); *it && !path.isEmpty(); ++it) {
        if ((*it)->data(0, PathRole).toString() == path)
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

void ProjectTree::addFiles(QTreeWidgetItem *root, const QString &title, const QStringList &paths,
                           bool removable)
{
    if (paths.isEmpty())
        return;
    auto *group = new QTreeWidgetItem(root, {title});
    group->setIcon(0, icon(QStyle::SP_DirOpenIcon));
    for (const QString &path : paths)
        addFile(group, path)->setData(0, IsProjectFileRole, removable);
}

QTreeWidgetItem *ProjectTree::addFile(QTreeWidgetItem *parent, const QString &path)
{
    auto *item = new QTreeWidgetItem(parent, {QFileInfo(path).fileName()});
    item->setIcon(0, icon(QStyle::SP_FileIcon));
    item->setData(0, PathRole, path);
    showExistence(item);
    return item;
}

void ProjectTree::showExistence(QTreeWidgetItem *item)
{
    const QString path = item->data(0, PathRole).toString();
    if (QFileInfo::exists(path)) {
        item->setData(0, Qt::ForegroundRole, QVariant());
        item->setToolTip(0, plainToolTip(path));
    } else {
        item->setForeground(0, palette().brush(QPalette::Disabled, QPalette::Text));
        item->setToolTip(0, tr("%1 does not exist").arg(plainToolTip(path)));
    }
}

void ProjectTree::updateExistence()
{
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        if (!(*it)->data(0, PathRole).toString().isEmpty())
            showExistence(*it);
    }
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
    const QPointer<ProjectTree> self(this);
    const QAction *chosen = menu.exec(event->globalPos());
    if (!chosen || !self)
        return;
    if (chosen == open)
        emit fileActivated(path);
    else if (Core::ProjectFile *project = Core::ProjectFile::current())
        project->removeFile(path);
}

} // namespace Workbench
