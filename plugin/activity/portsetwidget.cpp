#include "activity/portsetwidget.h"

#include "config/filenames.h"
#include "config/porttype.h"
#include "ui_portsetwidget.h"

#include "nlsdata/netlist.h"

#include <QCursor>

namespace VLT {

namespace {

bool canBeDisabled(const VLT_Port &port)
{
    return port.type != BufferedOutput;
}

bool isAlwaysEnabled(const VLT_Port &port)
{
    return port.type == BufferedOutput;
}

/// Code of the primitive that drives the port's net; 0 if there is none.
int driverOf(const NlsData::Port *port)
{
    const NlsData::Net *net = port->net();
    const NlsData::Instance *driver = net ? net->driver() : nullptr;
    return driver ? driver->primitive() : 0;
}

} // namespace

PortModel::PortModel(VLTView *view, QList<VLT_Port *> &records, QObject *parent)
    : RecordModel(view, records, parent,
                  {Column::text("Name", &VLT_Port::name)
                       .sortedBy(lessThanByName, greaterThanByName, &VLT_Port::name),
                   Column::number("Out Enable", &VLT_Port::outEnable, 50)
                       .editable(canBeDisabled)
                       .gray(isAlwaysEnabled)
                       .sortedBy(lessThanByOE, greaterThanByOE),
                   Column::number("Load Capacity", &VLT_Port::capacity, 5, "%1pF")
                       .editable()
                       .sortedBy(lessThanByCapacity, greaterThanByCapacity)})
{
}

PortSetWidget::PortSetWidget(VLTView *view, QWidget *parent)
    : RecordPage(view, parent)
    , m_ui(std::make_unique<Ui::PortSetWidget>())
{
    m_ui->setupUi(this);
    setUpTable(m_ui->tableView, &m_model, NODE_PORT, {320, 120});
    connectCommands(m_ui->btnAdd, m_ui->btnRemove, &PortSetWidget::onAdd,
                    &PortSetWidget::onShowContextMenu);
}

PortSetWidget::~PortSetWidget() = default;

void PortSetWidget::onAdd()
{
    find(NlsDataFinderDialog::FindOBuff, [this](const NlsDataFinderDialog &finder) {
        addRecords(
            finder.getBuff(), [](const NlsData::Port *port) { return port->path(); },
            [](VLT_Port &record, const NlsData::Port *port) {
                record.type = portType(port->direction(), driverOf(port));
            });
    });
}

void PortSetWidget::onShowContextMenu()
{
    showMenu(QCursor::pos());
}

bool PortSetWidget::isOBuff(NlsData::Port *port)
{
    return isOutputBuffer(driverOf(port));
}

void PortSetWidget::readData(QDomElement *parent)
{
    if (readPorts(*parent, adopt()))
        m_model.reload();
}

void PortSetWidget::writeData(QXmlStreamWriter *writer) const
{
    writePorts(writer, m_records.list());
}

void PortSetWidget::collect(Configuration *configuration) const
{
    configuration->ports = {!m_records.list().isEmpty(), m_records.values()};
}

} // namespace VLT
