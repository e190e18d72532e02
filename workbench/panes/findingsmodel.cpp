#include "workbench/panes/findingsmodel.h"

#include <QApplication>
#include <QStyle>

namespace Workbench {

FindingsModel::FindingsModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void FindingsModel::setFindings(const QVector<Check::Finding> &findings)
{
    beginResetModel();
    m_findings = findings;
    endResetModel();
}

QIcon FindingsModel::icon(Check::Level level)
{
    const auto which = level == Check::Level::Error     ? QStyle::SP_MessageBoxCritical
                       : level == Check::Level::Warning ? QStyle::SP_MessageBoxWarning
                                                        : QStyle::SP_MessageBoxInformation;
    return QApplication::style()->standardIcon(which);
}

int FindingsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_findings.size();
}

int FindingsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QString FindingsModel::text(const Check::Finding &finding, int column)
{
    switch (column) {
    case LevelColumn: {
        const QString name = levelName(finding.rule->level);
        return name.left(1).toUpper() + name.mid(1);
    }
    case RuleColumn:
        return QLatin1String(finding.rule->id);
    case ObjectColumn:
        return finding.name.isEmpty() ? finding.section : finding.name;
    default:
        return finding.message;
    }
}

QVariant FindingsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_findings.size())
        return {};
    const Check::Finding &finding = m_findings.at(index.row());
    const int column = index.column();
    if (role == SortRole && column == LevelColumn)
        return -int(finding.rule->level); // errors first
    if (role == Qt::DisplayRole || role == SortRole)
        return text(finding, column);
    if (role == Qt::DecorationRole && column == LevelColumn)
        return icon(finding.rule->level);
    if (role == Qt::ToolTipRole) {
        const QString plain = column == RuleColumn ? QString::fromLatin1(finding.rule->summary)
                                                   : text(finding, column);
        // A name may look like markup.
        return QString(QLatin1String("<p>") + plain.toHtmlEscaped() + QLatin1String("</p>"));
    }
    return {};
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    const QStringList titles = {tr("Level"), tr("Rule"), tr("Object"), tr("Message")};
    return titles.value(section);
}

FindingsFilter::FindingsFilter(FindingsModel *model, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_model(model)
{
    setSourceModel(model);
    setSortRole(FindingsModel::SortRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
}

void FindingsFilter::setShown(Check::Level level, bool shown)
{
    if (shown)
        m_hidden.remove(int(level));
    else
        m_hidden.insert(int(level));
    invalidateFilter();
}

bool FindingsFilter::filterAcceptsRow(int row, const QModelIndex &) const
{
    return !m_hidden.contains(int(m_model->finding(row).rule->level));
}

} // namespace Workbench
