#pragma once

#include "check/activity/coverage.h"

#include <QAbstractItemModel>

#include <memory>

namespace Workbench {

struct CoverageData;

/// The instances of a design as a tree, with what covers their nets.
class CoverageModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// KindColumn is the first of NET_KINDS columns.
    enum Column {
        InstanceColumn,
        NetsColumn,
        SourceColumn,
        KindColumn,
        TogglesColumn = KindColumn + Check::NET_KINDS,
        ColumnCount
    };
    enum Role {
        SortRole = Qt::UserRole, ///< orders instances by name, bars by what is covered
        BarRole                  ///< a CoverageBar
    };

    explicit CoverageModel(QObject *parent = nullptr);

    /// Null: there is nothing to show.
    void setCoverage(std::shared_ptr<const CoverageData> data);
    /// Whether instances are shown with what is inside them.
    void setNested(bool nested);

    const std::shared_ptr<const CoverageData> &coverage() const { return m_data; }
    bool isNested() const { return m_isNested; }
    /// Whether there is something to see in the column.
    bool hasColumn(int column) const;
    /// Scope of the design.
    quint32 scope(const QModelIndex &index) const { return quint32(index.internalId()); }
    QModelIndex indexOf(quint32 scope, int column = 0) const;
    /// Nets of a scope, with or without what is inside.
    const Check::InstanceCoverage &counts(quint32 scope) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString text(quint32 scope, int column) const;
    QString description(quint32 scope, int column) const;
    QVariant sortValue(quint32 scope, int column) const;
    QVariant bar(quint32 scope, int column) const;
    QString name(quint32 scope) const;

    std::shared_ptr<const CoverageData> m_data;
    std::vector<quint32> m_firstChild; // by scope, and one more
    std::vector<quint32> m_children;
    std::vector<quint32> m_rows; // by scope
    bool m_isNested = true;
};

} // namespace Workbench
