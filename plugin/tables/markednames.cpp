#include "tables/markednames.h"

#include "config/filenames.h"
#include "tables/tablemodel.h"

#include <QHelpEvent>
#include <QStyle>
#include <QTableView>
#include <QToolTip>

namespace VLT {

ListedKind listedKind(const QString &section)
{
    return section == NODE_NET        ? ListedKind::Net
           : section == NODE_PORT     ? ListedKind::Port
           : section == NODE_BSRAM    ? ListedKind::BlockSram
           : section == NODE_INSTANCE ? ListedKind::FlipFlop
           : section == NODE_FILE     ? ListedKind::Instance
                                      : ListedKind::None;
}

MarkedNames::MarkedNames(QTableView *table, ListedKind kind)
    : QObject(table)
    , m_table(table)
    , m_kind(kind)
{
    // A host's table may show tool tips of its own.
    table->viewport()->installEventFilter(this);
    const auto *model = static_cast<TableModel *>(table->model());
    connect(model, &TableModel::modelReset, this, &MarkedNames::namesAdded);
    connect(model, &TableModel::rowsInserted, this, &MarkedNames::namesAdded);
    connect(model, &TableModel::dataChanged, this, &MarkedNames::namesAdded);
    connect(model, &TableModel::nameEdited, this, &MarkedNames::namesAdded);
    connect(table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MarkedNames::tellScreenReaders);
}

void MarkedNames::setNames(const std::shared_ptr<const LookedUpNames> &names)
{
    m_names = names;
    m_table->viewport()->update();
    tellScreenReaders();
}

const QIcon &MarkedNames::icon() const
{
    if (m_icon.isNull())
        m_icon = m_table->style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, m_table);
    return m_icon;
}

QString MarkedNames::reason(const QString &name) const
{
    const QString what = m_kind == ListedKind::Net         ? tr("net")
                         : m_kind == ListedKind::Port      ? tr("port")
                         : m_kind == ListedKind::BlockSram ? tr("block SRAM")
                         : m_kind == ListedKind::FlipFlop  ? tr("flip-flop")
                                                           : tr("instance");
    return tr("The current netlist has no %1 \"%2\".").arg(what, name);
}

bool MarkedNames::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ToolTip || watched != m_table->viewport())
        return QObject::eventFilter(watched, event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = m_table->indexAt(help->pos());
    const QString name = index.data().toString();
    if (!index.isValid() || index.column() != 0 || !isMissing(name))
        return false;
    // A name may look like markup.
    const QString text = QStringLiteral("<p style='white-space:pre'>%1</p><p>%2</p>")
                             .arg(name.toHtmlEscaped(), reason(name).toHtmlEscaped());
    QToolTip::showText(help->globalPos(), text, m_table->viewport(), m_table->visualRect(index));
    return true;
}

// The roles of the models say nothing of marks, so the table itself describes its current row.
void MarkedNames::tellScreenReaders()
{
    const QString name = m_table->currentIndex().siblingAtColumn(0).data().toString();
    m_table->setAccessibleDescription(isMissing(name) ? reason(name) : QString());
}

} // namespace VLT
