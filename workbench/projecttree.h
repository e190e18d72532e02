#pragma once

#include <QHash>
#include <QIcon>
#include <QStyle>
#include <QTreeWidget>

namespace Workbench {

/// The current project: its device, its configurations and other files, its sources and its
/// netlist. It follows the project by itself.
class ProjectTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ProjectTree(QWidget *parent = nullptr);

    /// Fills the tree anew; what is selected stays selected.
    void rebuild();

    /// Selects the file's entry; nothing when it has none.
    void select(const QString &path);

signals:
    void fileActivated(const QString &path);
    void deviceActivated();

private:
    void onProjectChanged();
    void onItemActivated(QTreeWidgetItem *item);
    void addFiles(QTreeWidgetItem *root, const QString &title, const QStringList &paths,
                  bool removable = false);
    QTreeWidgetItem *addFile(QTreeWidgetItem *parent, const QString &path);
    void showExistence(QTreeWidgetItem *item);
    void updateExistence();
    QIcon icon(QStyle::StandardPixmap which);
    void contextMenuEvent(QContextMenuEvent *event) override;

    QHash<int, QIcon> m_icons; // made once: the style decodes a picture for each size
};

} // namespace Workbench
