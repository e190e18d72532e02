#pragma once

#include <QStringList>
#include <QWidget>

class QListWidget;
class QPushButton;

namespace Workbench {

/// The sources of a project: chosen one by one, or all Verilog files of a folder at once. Shown
/// relative to the project's folder, in the order in which synthesis reads them.
class SourceList : public QWidget
{
    Q_OBJECT

public:
    explicit SourceList(QWidget *parent = nullptr);

    /// Absolute paths.
    QStringList paths() const;
    void setPaths(const QStringList &paths);

    /// Absolute path of the folder to which the shown paths are relative.
    void setFolder(const QString &folder);

    /// Absolute paths of the Verilog files directly in a folder, sorted.
    static QStringList verilogIn(const QString &folder);

    /// The list itself, for a label's mnemonic.
    QWidget *list() const;

signals:
    void changed();

    /// The user has changed the list.
    void edited();

private:
    void chooseFiles();
    void chooseFolder();
    void add(const QStringList &paths);
    void removeSelected();
    void updateButtons();

    QString m_folder;
    QListWidget *m_list;
    QPushButton *m_remove;
};

} // namespace Workbench
