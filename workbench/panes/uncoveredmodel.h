#pragma once

#include <QAbstractTableModel>

#include <memory>
#include <vector>

namespace Workbench {

struct CoverageData;

/// The nets of an instance that are left to a default: those that others follow from first.
class UncoveredModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { NetColumn, KindColumn, ColumnCount };

    explicit UncoveredModel(QObject *parent = nullptr);

    /// `nested`: with what is inside the instance. Null `data`: there is nothing to show.
    void setInstance(std::shared_ptr<const CoverageData> data, quint32 scope, bool nested);

    QString net(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::shared_ptr<const CoverageData> m_data;
    std::vector<quint32> m_nets;
};

} // namespace Workbench
