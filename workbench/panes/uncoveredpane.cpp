#include "workbench/panes/uncoveredpane.h"

#include "workbench/coverage/coveragerun.h"
#include "workbench/panes/uncoveredmodel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

namespace Workbench {

UncoveredPane::UncoveredPane(QWidget *parent)
    : QWidget(parent)
    , m_model(new UncoveredModel(this))
    , m_list(new QTreeView)
    , m_copy(new QAction(tr("&Copy"), this))
    , m_add(new QAction(tr("Add to &Net Rates"), this))
{
    m_list->setObjectName(QStringLiteral("uncovered"));
    m_list->setAccessibleName(tr("Nets without a rate"));
    m_list->setModel(m_model);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setMinimumHeight(fontMetrics().height());
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(UncoveredModel::NetColumn, QHeaderView::Stretch);
    m_list->setColumnWidth(UncoveredModel::KindColumn, fontMetrics().averageCharWidth() * 11);

    m_copy->setShortcut(QKeySequence::Copy);
    m_copy->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(m_copy);
    m_copy->setToolTip(tr("Copy the selected nets, or all, one per line"));
    m_add->setToolTip(tr("Add the selected nets, or all, to the net rates of the configuration"));
    connect(m_copy, &QAction::triggered, this, &UncoveredPane::copy);
    connect(m_add, &QAction::triggered, this, [this] { emit ratesWanted(chosen()); });
    connect(m_list, &QTreeView::customContextMenuRequested, this, &UncoveredPane::showMenu);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &UncoveredPane::update);

    auto *bar = new QHBoxLayout;
    bar->setContentsMargins(4, 2, 4, 2);
    for (const auto &[action, name] :
         {std::pair(m_copy, "copyUncovered"), std::pair(m_add, "addUncovered")}) {
        auto *button = new QToolButton;
        button->setObjectName(QLatin1String(name));
        button->setDefaultAction(action);
        bar->addWidget(button);
    }
    bar->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(m_list);
    update();
}

void UncoveredPane::setInstance(const std::shared_ptr<const CoverageData> &data, quint32 scope,
                                bool nested)
{
    m_model->setInstance(data, scope, nested);
    update();
}

void UncoveredPane::update()
{
    const int all = m_model->rowCount();
    const int selected = m_list->selectionModel()->selectedRows().size();
    m_copy->setText(selected > 0 ? tr("&Copy %1").arg(selected) : tr("&Copy All"));
    m_add->setText(selected > 0 ? tr("Add %1 to &Net Rates").arg(selected)
                                : tr("Add All to &Net Rates"));
    m_copy->setEnabled(all > 0);
    m_add->setEnabled(all > 0);
}

QStringList UncoveredPane::chosen() const
{
    QModelIndexList rows = m_list->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList nets;
    for (const QModelIndex &row : qAsConst(rows))
        nets.append(m_model->net(row.row()));
    for (int row = 0; rows.isEmpty() && row < m_model->rowCount(); ++row)
        nets.append(m_model->net(row));
    return nets;
}

void UncoveredPane::copy()
{
    const QStringList nets = chosen();
    if (!nets.isEmpty())
        QApplication::clipboard()->setText(nets.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void UncoveredPane::showMenu(const QPoint &position)
{
    QMenu menu(this);
    menu.addActions({m_copy, m_add});
    menu.exec(m_list->viewport()->mapToGlobal(position));
}

} // namespace Workbench
