#include "workbench/panes/uncoveredmodel.h"

#include "workbench/coverage/coveragerun.h"

#include <algorithm>

namespace Workbench {

UncoveredModel::UncoveredModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void UncoveredModel::setInstance(std::shared_ptr<const CoverageData> data, quint32 scope,
                                 bool nested)
{
    beginResetModel();
    m_data = std::move(data);
    m_nets.clear();
    if (m_data) {
        const Check::DesignTree &tree = *m_data->tree;
        const auto &nets = m_data->coverage.nets();
        const quint32 end = nested ? tree.scopes()[scope].end : scope + 1;
        for (quint32 net = 0; net < nets.size(); ++net) {
            const bool isInside = tree.scopeOf(net) >= scope && tree.scopeOf(net) < end;
            if (isInside && isDefault(nets[net].source))
                m_nets.push_back(net);
        }
        std::stable_sort(m_nets.begin(), m_nets.end(),
                         [&tree](quint32 a, quint32 b) { return tree.kind(a) < tree.kind(b); });
    }
    endResetModel();
}

QString UncoveredModel::net(int row) const
{
    return m_data->tree->netPath(m_nets[size_t(row)]);
}

int UncoveredModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_nets.size());
}

int UncoveredModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant UncoveredModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    if (role == Qt::DisplayRole)
        return index.column() == NetColumn
                   ? net(index.row())
                   : netKindName(m_data->tree->kind(m_nets[size_t(index.row())]));
    if (role == Qt::ToolTipRole && index.column() == NetColumn) // may look like markup
        return QString(QLatin1String("<p>") + net(index.row()).toHtmlEscaped() +
                       QLatin1String("</p>"));
    return {};
}

QVariant UncoveredModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == KindColumn)
        return tr("Driven by");
    return m_nets.size() == 1 ? tr("1 Net without a Rate")
                              : tr("%1 Nets without a Rate").arg(m_nets.size());
}

} // namespace Workbench
