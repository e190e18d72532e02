#include "activity/bsramsetwidget.h"

#include "config/bsramkinds.h"
#include "config/filenames.h"
#include "ui_bsramsetwidget.h"

#include "nlsdata/netlist.h"

#include <QCursor>
#include <QHeaderView>

namespace VLT {

namespace {

/// Sets kind and values by the primitive. An unknown primitive gets kind 0 and no
/// values.
void setUp(VLT_BSRam &ram, int code)
{
    const std::optional<qint32> kind = bsramKind(code);
    if (!kind)
        return;
    const BSRamPorts &ports = *bsramPorts(*kind);
    ram.type = *kind;
    ram.aEnable = ports.aEnable;
    ram.bEnable = ports.bEnable;
    ram.aRead = ports.aRead;
    ram.bRead = ports.bRead;
    ram.aWrite = ports.aWrite;
    ram.bWrite = ports.bWrite;
}

template<float BSRamPorts::*function>
bool hasFunction(const VLT_BSRam &ram)
{
    const BSRamPorts *ports = bsramPorts(ram.type);
    return ports && ports->*function >= 0;
}

/// Not the same as lacking the port function: a file may have a value for a kind that lacks it.
template<float VLT_BSRam::*member>
bool isUnset(const VLT_BSRam &ram)
{
    return ram.*member < 0;
}

} // namespace

BSRamModel::BSRamModel(VLTView *view, QList<VLT_BSRam *> &records, QObject *parent)
    : RecordModel(view, records, parent,
                  {Column::text("Name", &VLT_BSRam::name)
                       .sortedBy(lessThanByName, greaterThanByName, &VLT_BSRam::name),
                   // Never gray, unlike the others.
                   Column::number("ClockA Enable", &VLT_BSRam::aEnable)
                       .editable()
                       .sortedBy(lessThanByAEnable, greaterThanByAEnable),
                   Column::number("ReadA Probability", &VLT_BSRam::aRead)
                       .editable(hasFunction<&BSRamPorts::aRead>)
                       .gray(isUnset<&VLT_BSRam::aRead>)
                       .sortedBy(lessThanByARead, greaterThanByARead),
                   Column::number("WriteA Probability", &VLT_BSRam::aWrite)
                       .editable(hasFunction<&BSRamPorts::aWrite>)
                       .gray(isUnset<&VLT_BSRam::aWrite>)
                       .sortedBy(lessThanByAWrite, greaterThanByAWrite),
                   Column::number("ClockB Enable", &VLT_BSRam::bEnable)
                       .editable(hasFunction<&BSRamPorts::bEnable>)
                       .gray(isUnset<&VLT_BSRam::bEnable>)
                       .sortedBy(lessThanByBEnable, greaterThanByBEnable),
                   Column::number("ReadB Probability", &VLT_BSRam::bRead)
                       .editable(hasFunction<&BSRamPorts::bRead>)
                       .gray(isUnset<&VLT_BSRam::bRead>)
                       .sortedBy(lessThanByBRead, greaterThanByBRead),
                   Column::number("WriteB Probability", &VLT_BSRam::bWrite)
                       .editable(hasFunction<&BSRamPorts::bWrite>)
                       .gray(isUnset<&VLT_BSRam::bWrite>)
                       .sortedBy(lessThanByBWrite, greaterThanByBWrite)})
{
}

/// Connects a default for the memories that are not listed.
BsramSetWidget::BsramSetWidget(VLTView *view, QWidget *parent)
    : RecordPage(view, parent)
    , m_ui(std::make_unique<Ui::BsramSetWidget>())
{
    m_ui->setupUi(this);
    setUpTable(m_ui->tableView, &m_model, NODE_BSRAM, {200, 120, 130, 130, 120, 130});
    m_ui->tableView->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connectCommands(m_ui->btnAdd, m_ui->btnRemove, &BsramSetWidget::onAdd,
                    &BsramSetWidget::onShowContextMenu);
    for (const QDoubleSpinBox *value :
         {m_ui->spinClockEnable, m_ui->spinReadProbability, m_ui->spinWriteProbability})
        connect(value, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
                &BsramSetWidget::modified);
}

BsramSetWidget::~BsramSetWidget() = default;

void BsramSetWidget::onAdd()
{
    find(NlsDataFinderDialog::FindBsram, [this](const NlsDataFinderDialog &finder) {
        addRecords(
            finder.getBsram(), [](const NlsData::Instance *instance) { return instance->path(); },
            [](VLT_BSRam &ram, const NlsData::Instance *instance) {
                setUp(ram, instance->primitive());
            });
    });
}

void BsramSetWidget::onShowContextMenu(QPoint)
{
    showMenu(QCursor::pos());
}

BSRamDefaults BsramSetWidget::defaults() const
{
    return {m_ui->spinClockEnable->value(), m_ui->spinReadProbability->value(),
            m_ui->spinWriteProbability->value()};
}

void BsramSetWidget::readData(QDomElement *parent)
{
    BSRamDefaults defaults;
    if (!readBSRams(*parent, &defaults, adopt()))
        return;
    m_ui->spinClockEnable->setValue(defaults.clockEnable);
    m_ui->spinReadProbability->setValue(defaults.readProbability);
    m_ui->spinWriteProbability->setValue(defaults.writeProbability);
    m_model.reload();
}

void BsramSetWidget::writeData(QXmlStreamWriter *writer) const
{
    writeBSRams(writer, defaults(), m_records.list());
}

void BsramSetWidget::collect(Configuration *configuration) const
{
    configuration->bsrams = {true, defaults(), m_records.values()};
}

} // namespace VLT
