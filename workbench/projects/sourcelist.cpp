#include "workbench/projects/sourcelist.h"

#include "workbench/projects/synthesistemplate.h"

#include "host/utils/dialogs.h"
#include "host/utils/documentpath.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>

namespace Workbench {

namespace {

constexpr int PATH_ROLE = Qt::UserRole;
constexpr int VISIBLE_ROWS = 5;

} // namespace

SourceList::SourceList(QWidget *parent)
    : QWidget(parent)
    , m_list(new QListWidget)
    , m_remove(new QPushButton(tr("&Remove")))
{
    auto *addFiles = new QPushButton(tr("&Add files\u2026"));
    auto *addFolder = new QPushButton(tr("Add fo&lder\u2026"));
    addFiles->setObjectName(QStringLiteral("addSources"));
    addFolder->setObjectName(QStringLiteral("addSourceFolder"));
    addFolder->setToolTip(tr("Add all Verilog files (*.v, *.sv) of a folder"));
    m_remove->setObjectName(QStringLiteral("removeSources"));
    m_list->setObjectName(QStringLiteral("sources"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setUniformItemSizes(true);
    m_list->setTabKeyNavigation(false);
    m_list->setMinimumHeight(fontMetrics().lineSpacing() * VISIBLE_ROWS);
    auto *remove = new QAction(m_list);
    remove->setShortcut(Qt::Key_Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(remove);

    auto *buttons = new QVBoxLayout;
    buttons->addWidget(addFiles);
    buttons->addWidget(addFolder);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);

    connect(addFiles, &QPushButton::clicked, this, &SourceList::chooseFiles);
    connect(addFolder, &QPushButton::clicked, this, &SourceList::chooseFolder);
    connect(m_remove, &QPushButton::clicked, this, &SourceList::removeSelected);
    connect(remove, &QAction::triggered, this, &SourceList::removeSelected);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &SourceList::updateButtons);
    updateButtons();
}

QWidget *SourceList::list() const
{
    return m_list;
}

QStringList SourceList::paths() const
{
    QStringList result;
    for (int i = 0; i < m_list->count(); ++i)
        result.append(m_list->item(i)->data(PATH_ROLE).toString());
    return result;
}

void SourceList::setPaths(const QStringList &paths)
{
    m_list->clear();
    for (const QString &path : paths) {
        auto *item = new QListWidgetItem(QDir(m_folder).relativeFilePath(path), m_list);
        item->setData(PATH_ROLE, path);
        if (!QFileInfo::exists(path)) {
            item->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
            item->setToolTip(tr("This file does not exist."));
        }
    }
    updateButtons();
    emit changed();
}

void SourceList::setFolder(const QString &folder)
{
    m_folder = folder;
    setPaths(paths());
}

QStringList SourceList::verilogIn(const QString &folder)
{
    QStringList result;
    const QDir dir(folder);
    const QStringList names = dir.entryList(QDir::Files | QDir::Readable, QDir::Name);
    for (const QString &name : names) {
        if (isVerilog(name))
            result.append(Utils::documentPath(dir.filePath(name)));
    }
    return result;
}

void SourceList::chooseFiles()
{
    Utils::GuardedDialog dialog(new QFileDialog(
        this, tr("Add Sources"), m_folder, tr("Verilog (*.v *.sv *.vh *.svh);;All files (*)")));
    dialog->setFileMode(QFileDialog::ExistingFiles);
    if (dialog.exec() == QDialog::Accepted)
        add(dialog->selectedFiles());
}

void SourceList::chooseFolder()
{
    Utils::GuardedDialog dialog(
        new QFileDialog(this, tr("Add Verilog Files of a Folder"), m_folder));
    dialog->setFileMode(QFileDialog::Directory);
    if (dialog.exec() == QDialog::Accepted)
        add(verilogIn(dialog->selectedFiles().value(0)));
}

void SourceList::add(const QStringList &paths)
{
    QStringList all = this->paths();
    for (const QString &path : paths) {
        const QString absolute = Utils::documentPath(path);
        if (!all.contains(absolute))
            all.append(absolute);
    }
    emit edited();
    setPaths(all);
}

void SourceList::removeSelected()
{
    QStringList left;
    for (int i = 0; i < m_list->count(); ++i) {
        if (!m_list->item(i)->isSelected())
            left.append(m_list->item(i)->data(PATH_ROLE).toString());
    }
    emit edited();
    setPaths(left);
}

void SourceList::updateButtons()
{
    m_remove->setEnabled(!m_list->selectedItems().isEmpty());
}

} // namespace Workbench
