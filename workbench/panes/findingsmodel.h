#pragma once

#include "check/finding.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QSet>
#include <QSortFilterProxyModel>

namespace Workbench {

/// Findings as rows, in their order.
class FindingsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { LevelColumn, RuleColumn, ObjectColumn, MessageColumn, ColumnCount };
    enum Role { SortRole = Qt::UserRole }; ///< orders levels by weight, all else by its text

    explicit FindingsModel(QObject *parent = nullptr);

    void setFindings(const QVector<Check::Finding> &findings);
    /// Whether exactly these findings are shown.
    bool isOf(const QVector<Check::Finding> &findings) const
    {
        return findings.constData() == m_findings.constData();
    }
    const Check::Finding &finding(int row) const { return m_findings.at(row); }

    static QIcon icon(Check::Level level);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    static QString text(const Check::Finding &finding, int column);

    QVector<Check::Finding> m_findings;
};

/// The findings of the levels that are shown.
class FindingsFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit FindingsFilter(FindingsModel *model, QObject *parent = nullptr);

    void setShown(Check::Level level, bool shown);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    FindingsModel *const m_model;
    QSet<int> m_hidden; // levels
};

} // namespace Workbench
