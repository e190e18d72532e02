#include "rates/ratetableview.h"

#include "config/filenames.h"
#include "config/limits.h"
#include "tables/document.h"
#include "tables/doubledelegate.h"
#include "tables/nlsdatafinderdialog.h"
#include "widgets/guardeddialog.h"
#include "widgets/waitcursor.h"

#include "nlsdata/findnetdialog.h"
#include "nlsdata/netlist.h"
#include "utils/tableview.h"

#include <QHeaderView>
#include <QVBoxLayout>

namespace VLT {

namespace {

constexpr int NAME_WIDTH = 500;
constexpr int VALUE_WIDTH = 100;

} // namespace

RateTableView::RateTableView(QWidget *parent)
    : RecordPage(nullptr, parent)
    , m_table(new Utils::TableView(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);
    setUpTable(m_table, &m_model, NODE_NET, {NAME_WIDTH});
    m_table->setAccessibleName(tr("Net rates"));
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    delegate()->setMaximum(TOGGLE_RATE.maximum);
    connectCommands(nullptr, nullptr, &RateTableView::onNew, &RateTableView::onShowContextMenu);
}

void RateTableView::setData(const QList<VLT_Rate *> &rates)
{
    m_records.replace(rates);
    m_model.reload();
}

void RateTableView::setValueType(bool toggle)
{
    commitEditor();
    m_model.setUnitType(toggle);
    delegate()->setMaximum(rateRange(toggle ? RateUnit::Toggle : RateUnit::Signal).maximum);
}

void RateTableView::resetValue()
{
    for (VLT_Rate *rate : m_records.list())
        rate->value.clear();
    m_table->viewport()->update();
    document()->setModified(true);
}

QSize RateTableView::sizeHint() const
{
    return {NAME_WIDTH + VALUE_WIDTH, TablePage::sizeHint().height()};
}

void RateTableView::onNew()
{
    if (m_type == RateOfNets)
        chooseNets();
    else
        addPorts();
}

void RateTableView::chooseNets()
{
    const QPointer<RateTableView> self(this);
    // Held while the chosen nets are used, because a synthesis run may replace the view's netlist.
    const auto netlist = document()->holdNetlist();
    if (!netlist)
        return;
    const QList<NlsData::Net *> all = [&netlist] {
        const WaitCursor wait; // the first call builds the map
        return netlist->netMap().values();
    }();
    const QList<NlsData::Net *> nets = NlsData::FindNetDialog::getList(all, this);
    if (self && !nets.isEmpty())
        appendNets(nets);
}

int RateTableView::addNets(const QStringList &paths)
{
    const auto netlist = document()->holdNetlist();
    if (!netlist)
        return 0;
    const WaitCursor wait;
    QList<NlsData::Net *> nets;
    for (const QString &path : paths) {
        if (NlsData::Net *net = netlist->netMap().value(path))
            nets.append(net);
    }
    const int before = m_records.list().size();
    appendNets(nets);
    return m_records.list().size() - before;
}

void RateTableView::appendNets(const QList<NlsData::Net *> &nets)
{
    addRecords(
        nets, [](const NlsData::Net *net) { return net->path(); },
        [](VLT_Rate &, const NlsData::Net *) {});
}

void RateTableView::addPorts()
{
    const auto netlist = document()->holdNetlist();
    GuardedDialog<NlsDataFinderDialog> finder(
        new NlsDataFinderDialog(this, netlist.get(), NlsDataFinderDialog::FindPort));
    if (!finder.exec())
        return;
    addRecords(
        finder->getSelected(), [](const QString &name) { return name; },
        [](VLT_Rate &, const QString &) {});
}

void RateTableView::onShowContextMenu(QPoint point)
{
    showMenu(m_table->viewport()->mapToGlobal(point));
}

} // namespace VLT
