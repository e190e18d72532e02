#include "activity/bsramsetwidget.h"

#include "ui_bsramsetwidget.h"

#include "nlsdata/netlist.h"

#include <QCursor>
#include <QHeaderView>

#include <algorithm>
#include <iterator>

namespace VLT {

namespace {

const NumberAttribute<VLT_BSRam> numbers[] = {
    {ATTR_A_CLK_ENABLE, &VLT_BSRam::aEnable}, {ATTR_B_CLK_ENABLE, &VLT_BSRam::bEnable},
    {ATTR_A_READ, &VLT_BSRam::aRead},         {ATTR_A_WRITE, &VLT_BSRam::aWrite},
    {ATTR_B_READ, &VLT_BSRam::bRead},         {ATTR_B_WRITE, &VLT_BSRam::bWrite},
};

/// The port functions of a memory, with their values when it is added; negative where it has none.
struct Ports
{
    float aEnable, aRead, aWrite, bEnable, bRead, bWrite;
};

constexpr Ports readOnly = {100, 100, -1, -1, -1, -1};
constexpr Ports single = {100, 100, 50, -1, -1, -1};
constexpr Ports writeAReadB = {100, -1, 100, 100, 100, -1};
constexpr Ports dual = {100, 100, 50, 100, 100, 50};

/// By kind, 0 to 8.
constexpr const Ports *kinds[] = {&readOnly, &single,      &writeAReadB, &dual,    &writeAReadB,
                                  &readOnly, &writeAReadB, &dual,        &readOnly};

struct Primitive
{
    int code; ///< the environment's
    qint32 kind;
};

constexpr Primitive primitives[] = {{90, 0},  {91, 0},  {88, 1},  {89, 1},  {86, 2},
                                    {87, 2},  {242, 2}, {84, 3},  {85, 3},  {192, 4},
                                    {193, 4}, {194, 5}, {195, 5}, {199, 6}, {200, 6},
                                    {201, 7}, {202, 7}, {204, 8}, {205, 8}};

/// Sets kind and values by the primitive. A primitive that is not known gives kind 0 without
/// values.
void setUp(VLT_BSRam &ram, int code)
{
    const auto primitive =
        std::find_if(std::begin(primitives), std::end(primitives),
                     [code](const Primitive &candidate) { return candidate.code == code; });
    if (primitive == std::end(primitives))
        return;
    ram.type = primitive->kind;
    const Ports &ports = *kinds[ram.type];
    ram.aEnable = ports.aEnable;
    ram.bEnable = ports.bEnable;
    ram.aRead = ports.aRead;
    ram.bRead = ports.bRead;
    ram.aWrite = ports.aWrite;
    ram.bWrite = ports.bWrite;
}

template<float Ports::*function>
bool hasFunction(const VLT_BSRam &ram)
{
    return ram.type >= 0 && ram.type < int(std::size(kinds)) && kinds[ram.type]->*function >= 0;
}

/// Not the same as having no such function: a file may hold a value for a kind that has none.
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
                       .editable(hasFunction<&Ports::aRead>)
                       .gray(isUnset<&VLT_BSRam::aRead>)
                       .sortedBy(lessThanByARead, greaterThanByARead),
                   Column::number("WriteA Probability", &VLT_BSRam::aWrite)
                       .editable(hasFunction<&Ports::aWrite>)
                       .gray(isUnset<&VLT_BSRam::aWrite>)
                       .sortedBy(lessThanByAWrite, greaterThanByAWrite),
                   Column::number("ClockB Enable", &VLT_BSRam::bEnable)
                       .editable(hasFunction<&Ports::bEnable>)
                       .gray(isUnset<&VLT_BSRam::bEnable>)
                       .sortedBy(lessThanByBEnable, greaterThanByBEnable),
                   Column::number("ReadB Probability", &VLT_BSRam::bRead)
                       .editable(hasFunction<&Ports::bRead>)
                       .gray(isUnset<&VLT_BSRam::bRead>)
                       .sortedBy(lessThanByBRead, greaterThanByBRead),
                   Column::number("WriteB Probability", &VLT_BSRam::bWrite)
                       .editable(hasFunction<&Ports::bWrite>)
                       .gray(isUnset<&VLT_BSRam::bWrite>)
                       .sortedBy(lessThanByBWrite, greaterThanByBWrite)})
{
}

/// A value of the page for the memories that it does not list.
struct BsramSetWidget::Default
{
    QString name; ///< attribute
    QDoubleSpinBox *spinBox;
};

QVector<BsramSetWidget::Default> BsramSetWidget::defaults() const
{
    return {{ATTR_CLOCK_ENABLE, m_ui->spinClockEnable},
            {ATTR_READ_PROBABILITY, m_ui->spinReadProbability},
            {ATTR_WRITE_PROBABILITY, m_ui->spinWriteProbability}};
}

BsramSetWidget::BsramSetWidget(VLTView *view, QWidget *parent)
    : RecordPage(view, parent)
    , m_ui(std::make_unique<Ui::BsramSetWidget>())
{
    m_ui->setupUi(this);
    setUpTable(m_ui->tableView, &m_model, {200, 120, 130, 130, 120, 130});
    m_ui->tableView->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connectCommands(m_ui->btnAdd, m_ui->btnRemove, &BsramSetWidget::onAdd,
                    &BsramSetWidget::onShowContextMenu);
    for (const Default &value : defaults())
        connect(value.spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
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

void BsramSetWidget::readData(QDomElement *parent)
{
    const QDomElement section = parent->firstChildElement(NODE_BSRAM_ENABLE);
    if (section.isNull())
        return;
    for (const Default &value : defaults())
        value.spinBox->setValue(
            numberFromText(section.attribute(value.name, QStringLiteral("100"))));
    forEachChild(section, NODE_BSRAM, [this](const QDomElement &element) {
        VLT_BSRam *ram = readRecord(element, numbers);
        ram->type = element.attribute(ATTR_TYPE).toInt();
    });
    m_model.reload();
}

void BsramSetWidget::writeData(QXmlStreamWriter *writer) const
{
    writer->writeStartElement(NODE_BSRAM_ENABLE);
    for (const Default &value : defaults())
        writer->writeAttribute(value.name, numberText(value.spinBox->value()));
    for (const VLT_BSRam *ram : m_records.list()) {
        if (ram->name.isEmpty())
            continue;
        writer->writeEmptyElement(NODE_BSRAM);
        writer->writeAttribute(ATTR_NAME, ram->name);
        writeNumbers(writer, numbers, *ram);
        writer->writeAttribute(ATTR_TYPE, QString::number(ram->type));
    }
    writer->writeEndElement();
}

} // namespace VLT
