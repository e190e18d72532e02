#include "workbench/panes/coveragemodel.h"

#include "check/names/designnames.h"
#include "workbench/coverage/coveragerun.h"
#include "workbench/panes/coveragebar.h"
#include "workbench/panes/coveragetexts.h"

#include "nlsdata/netlist.h"

namespace Workbench {

namespace {

size_t kindOf(int column)
{
    return size_t(column - CoverageModel::KindColumn);
}

bool isKind(int column)
{
    return column >= CoverageModel::KindColumn && column < CoverageModel::TogglesColumn;
}

} // namespace

CoverageModel::CoverageModel(QObject *parent)
    : QAbstractItemModel(parent)
{
}

void CoverageModel::setCoverage(std::shared_ptr<const CoverageData> data)
{
    beginResetModel();
    m_data = std::move(data);
    m_firstChild.clear();
    m_children.clear();
    m_rows.clear();
    if (m_data) {
        const auto &scopes = m_data->tree->scopes();
        m_firstChild.assign(scopes.size() + 1, 0);
        for (size_t i = 1; i < scopes.size(); ++i)
            ++m_firstChild[scopes[i].parent + 1];
        for (size_t i = 1; i < m_firstChild.size(); ++i)
            m_firstChild[i] += m_firstChild[i - 1];
        m_children.resize(scopes.size() - 1);
        m_rows.assign(scopes.size(), 0);
        std::vector<quint32> filled(scopes.size(), 0);
        for (quint32 i = 1; i < scopes.size(); ++i) {
            const quint32 parent = scopes[i].parent;
            m_rows[i] = filled[parent]++;
            m_children[m_firstChild[parent] + m_rows[i]] = i;
        }
    }
    endResetModel();
}

void CoverageModel::setNested(bool nested)
{
    if (nested == m_isNested)
        return;
    emit layoutAboutToBeChanged();
    m_isNested = nested;
    emit layoutChanged();
}

bool CoverageModel::hasColumn(int column) const
{
    if (!m_data)
        return column < KindColumn;
    if (isKind(column))
        return m_data->coverage.whole().front().kinds.nets[kindOf(column)] > 0;
    return column != TogglesColumn ||
           (m_data->coverage.hasToggles() && !m_data->coverage.files().empty());
}

const Check::InstanceCoverage &CoverageModel::counts(quint32 scope) const
{
    return (m_isNested ? m_data->coverage.whole() : m_data->coverage.own())[scope];
}

QModelIndex CoverageModel::indexOf(quint32 scope, int column) const
{
    return createIndex(int(m_rows[scope]), column, quintptr(scope));
}

QModelIndex CoverageModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const quint32 scope =
        parent.isValid() ? m_children[m_firstChild[this->scope(parent)] + quint32(row)] : 0;
    return createIndex(row, column, quintptr(scope));
}

QModelIndex CoverageModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || scope(child) == 0)
        return {};
    return indexOf(m_data->tree->scopes()[scope(child)].parent);
}

int CoverageModel::rowCount(const QModelIndex &parent) const
{
    if (!m_data || parent.column() > 0)
        return 0;
    if (!parent.isValid())
        return 1;
    const quint32 scope = this->scope(parent);
    return int(m_firstChild[scope + 1] - m_firstChild[scope]);
}

int CoverageModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QString CoverageModel::name(quint32 scope) const
{
    const auto &scopes = m_data->tree->scopes();
    if (scope == 0)
        return m_data->design.names->design();
    const QString above = m_data->tree->path(scopes[scope].parent);
    return m_data->tree->path(scope).mid(above.isEmpty() ? 0 : above.size() + 1);
}

QString CoverageModel::text(quint32 scope, int column) const
{
    const Check::InstanceCoverage &counts = this->counts(scope);
    if (column == InstanceColumn)
        return name(scope);
    if (column == NetsColumn)
        return QString::number(counts.kinds.allNets());
    if (column == TogglesColumn)
        return QString::number(counts.toggles);
    if (!isKind(column))
        return {};
    return percentText(counts.kinds.covered[kindOf(column)], counts.kinds.nets[kindOf(column)]);
}

/// What a bar says, in words.
QString CoverageModel::description(quint32 scope, int column) const
{
    const Check::InstanceCoverage &counts = this->counts(scope);
    if (column == InstanceColumn)
        return scope == 0 ? name(scope) : m_data->tree->path(scope);
    if (column == SourceColumn)
        return sourcesText(counts);
    if (isKind(column))
        return shareText(counts.kinds.covered[kindOf(column)], counts.kinds.nets[kindOf(column)]);
    return text(scope, column);
}

QVariant CoverageModel::sortValue(quint32 scope, int column) const
{
    const Check::InstanceCoverage &counts = this->counts(scope);
    const auto share = [](quint32 covered, quint32 nets) {
        return nets == 0 ? 2.0 : double(covered) / nets; // nothing to cover is better than all
    };
    if (column == InstanceColumn)
        return name(scope);
    if (column == NetsColumn)
        return counts.kinds.allNets();
    if (column == TogglesColumn)
        return counts.toggles;
    if (column == SourceColumn)
        return share(counts.kinds.coveredNets(), counts.kinds.allNets());
    return share(counts.kinds.covered[kindOf(column)], counts.kinds.nets[kindOf(column)]);
}

QVariant CoverageModel::bar(quint32 scope, int column) const
{
    const Check::InstanceCoverage &counts = this->counts(scope);
    CoverageBar bar;
    if (isKind(column)) {
        bar.whole = counts.kinds.nets[kindOf(column)];
        bar.parts.append({CoverageBar::Covered, counts.kinds.covered[kindOf(column)]});
    } else if (column == SourceColumn) {
        bar.whole = counts.kinds.allNets();
        for (const ShownSource &source : SHOWN_SOURCES)
            bar.parts.append({source.part, counts.sources[size_t(source.source)]});
    } else {
        return {};
    }
    return QVariant::fromValue(bar);
}

QVariant CoverageModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !m_data)
        return {};
    const quint32 scope = this->scope(index);
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return text(scope, column);
    case Qt::AccessibleTextRole:
        return description(scope, column);
    case Qt::ToolTipRole: // a name may look like markup
        return QString(QLatin1String("<p>") + description(scope, column).toHtmlEscaped() +
                       QLatin1String("</p>"));
    case Qt::TextAlignmentRole:
        return column == NetsColumn || column == TogglesColumn
                   ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter))
                   : QVariant();
    case SortRole:
        return sortValue(scope, column);
    case BarRole:
        return bar(scope, column);
    default:
        return {};
    }
}

QVariant CoverageModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= ColumnCount)
        return {};
    if (role == Qt::TextAlignmentRole && (section == NetsColumn || section == TogglesColumn))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ToolTipRole && isKind(section))
        return tr("Nets that have a rate or a file, by what drives them");
    if (role == Qt::ToolTipRole && section == SourceColumn)
        return tr("Where the rates of the nets come from");
    if (role != Qt::DisplayRole)
        return {};
    if (isKind(section))
        return kindText(Check::ALL_NET_KINDS[kindOf(section)]);
    return section == InstanceColumn ? tr("Instance")
           : section == NetsColumn   ? tr("Nets")
           : section == SourceColumn ? tr("Source of Rate")
                                     : tr("Toggles");
}

} // namespace Workbench
