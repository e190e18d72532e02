#pragma once

#include <QWidget>

#include <memory>

class QAction;
class QTreeView;

namespace Workbench {

struct CoverageData;
class UncoveredModel;

/// The nets of an instance that are left to a default, to be copied or to be given rates.
class UncoveredPane : public QWidget
{
    Q_OBJECT

public:
    explicit UncoveredPane(QWidget *parent = nullptr);

    /// As UncoveredModel::setInstance().
    void setInstance(const std::shared_ptr<const CoverageData> &data, quint32 scope, bool nested);

signals:
    /// The user wants these nets to be added to the net rates.
    void ratesWanted(const QStringList &nets);

private:
    void update();
    void copy();
    void showMenu(const QPoint &position);
    /// Selected nets in their order; all when none is selected.
    QStringList chosen() const;

    UncoveredModel *const m_model;
    QTreeView *const m_list;
    QAction *const m_copy;
    QAction *const m_add;
};

} // namespace Workbench
