#include "rates/vcdfilewidget.h"

#include "config/activityfile.h"
#include "config/filenames.h"
#include "config/plainnumber.h"
#include "config/section.h"
#include "rates/vcdfilesetdialog.h"
#include "tables/document.h"
#include "ui_vcdfilewidget.h"
#include "widgets/guardeddialog.h"
#include "widgets/plainmessage.h"
#include "widgets/wheelguard.h"

#include "nlsdata/netlist.h"

#include <QDomElement>
#include <QHeaderView>
#include <QSet>
#include <QXmlStreamWriter>

namespace VLT {

namespace {

enum RateUnit { TOGGLE_RATE, SIGNAL_RATE }; // places in the unit boxes

constexpr double MAX_TOGGLE_RATE = 200.0;
constexpr double MAX_SIGNAL_RATE = 99999999.0;
constexpr double DEFAULT_TOGGLE_RATE = 12.5;

} // namespace

VcdFileWidget::VcdFileWidget(VLTView *view, QWidget *parent)
    : TablePage(view, parent)
    , m_view(view)
    , m_model(m_records.list(), this)
    , m_ui(std::make_unique<Ui::VcdFileTableView>())
{
    m_ui->setupUi(this);
    setUpTable(m_ui->tableView, &m_model, {100, 240, 120}, tr("Add Input File"));
    m_ui->tableView->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connectCommands(m_ui->btnAdd, m_ui->btnRemove, &VcdFileWidget::onNew,
                    &VcdFileWidget::onShowContextMenu);
    // Queued: the table must not be handling its mouse event any more when its view is closed under
    // the dialog.
    connect(m_ui->tableView, &QTableView::doubleClicked, this, &VcdFileWidget::onEditData,
            Qt::QueuedConnection);
    connect(m_ui->checkGlitch, &QCheckBox::clicked, this, &VcdFileWidget::onGlitchChanged);
    for (const QDoubleSpinBox *edit : {m_ui->editIOValue, m_ui->editRemainValue}) {
        connect(edit, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &VcdFileWidget::modified);
    }
    connect(m_ui->comboIOUnit, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &VcdFileWidget::onIOUnitChanged);
    connect(m_ui->comboRemainUnit, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &VcdFileWidget::onRemainUnitChanged);
    // A turn of the wheel on the way down the page would change unit and value.
    for (QComboBox *combo : {m_ui->comboIOUnit, m_ui->comboRemainUnit})
        ignoreWheelWithoutFocus(combo);
    m_ui->radioVectorless->hide();
}

VcdFileWidget::~VcdFileWidget() = default;

VcdFileWidget::DefaultRate VcdFileWidget::ioRate() const
{
    return {m_ui->editIOValue, m_ui->comboIOUnit, NODE_DEFAULT_IO_TOGGLE, NODE_DEFAULT_IO_SIGNAL};
}

VcdFileWidget::DefaultRate VcdFileWidget::remainRate() const
{
    return {m_ui->editRemainValue, m_ui->comboRemainUnit, NODE_DEFAULT_RM_TOGGLE,
            NODE_DEFAULT_RM_SIGNAL};
}

void VcdFileWidget::readData(QDomElement *parent)
{
    const QDomElement rates = parent->firstChildElement(NODE_DEFAULT_CFG);
    if (!rates.isNull()) {
        readRate(rates, ioRate());
        readRate(rates, remainRate());
    }
    const QDomElement files = parent->firstChildElement(NODE_SIMU_FILE);
    if (!files.isNull())
        readFiles(files);
}

void VcdFileWidget::readRate(const QDomElement &section, const DefaultRate &rate)
{
    QDomElement element = section.firstChildElement(rate.toggleNode);
    const RateUnit unit = element.isNull() ? SIGNAL_RATE : TOGGLE_RATE;
    if (element.isNull())
        element = section.firstChildElement(rate.signalNode);
    if (element.isNull())
        return;
    // The unit first: it sets the limit of the value.
    rate.unit->setCurrentIndex(unit);
    rate.value->setValue(numberFromText(element.text()));
}

void VcdFileWidget::readFiles(const QDomElement &section)
{
    forEachChild(section, NODE_FILE, [this](const QDomElement &element) {
        auto file = std::make_unique<VLT_VcdFile>();
        file->file = keptText(element, ATTR_NAME);
        file->entity = keptText(element, ATTR_ENTITY);
        if (file->entity.isEmpty())
            file->entity = designName();
        file->isVcd = element.attribute(ATTR_TYPE) == TYPE_VCD;
        file->startTime = keptText(element, ATTR_START_TIME);
        file->endTime = keptText(element, ATTR_END_TIME);
        file->timeUnit = keptText(element, ATTR_TIME_UNIT);
        m_records.list().append(file.release());
    });
    const QDomElement glitch = section.firstChildElement(NODE_FILTER_GLITCH);
    if (!glitch.isNull())
        m_ui->checkGlitch->setChecked(glitch.text() == FLAG_TRUE);
    m_model.reload();
}

void VcdFileWidget::writeData(QXmlStreamWriter *writer) const
{
    writer->writeStartElement(NODE_DEFAULT_CFG);
    writeRate(writer, ioRate());
    writeRate(writer, remainRate());
    writer->writeEndElement();
    if (m_records.list().isEmpty())
        return;
    writer->writeStartElement(NODE_SIMU_FILE);
    for (const VLT_VcdFile *file : m_records.list())
        writeFile(writer, *file);
    writer->writeTextElement(NODE_FILTER_GLITCH,
                             m_ui->checkGlitch->isChecked() ? FLAG_TRUE : FLAG_FALSE);
    writer->writeEndElement();
}

void VcdFileWidget::writeRate(QXmlStreamWriter *writer, const DefaultRate &rate)
{
    const bool toggle = rate.unit->currentIndex() == TOGGLE_RATE;
    writer->writeTextElement(toggle ? rate.toggleNode : rate.signalNode, rate.value->text());
}

void VcdFileWidget::writeFile(QXmlStreamWriter *writer, const VLT_VcdFile &file) const
{
    writer->writeEmptyElement(NODE_FILE);
    writer->writeAttribute(ATTR_TYPE, file.isVcd ? TYPE_VCD : TYPE_SAIF);
    writer->writeAttribute(ATTR_NAME, file.file);
    writer->writeAttribute(ATTR_ENTITY, file.entity == designName() ? QString() : file.entity);
    if (!file.startTime.isEmpty())
        writer->writeAttribute(ATTR_START_TIME, file.startTime);
    if (!file.endTime.isEmpty())
        writer->writeAttribute(ATTR_END_TIME, file.endTime);
    if (!file.startTime.isEmpty() || !file.endTime.isEmpty())
        writer->writeAttribute(ATTR_TIME_UNIT, file.timeUnit);
}

QString VcdFileWidget::designName() const
{
    const NlsData::Netlist *netlist = document()->getNetlist();
    return netlist ? netlist->name() : QString();
}

bool VcdFileWidget::checkData()
{
    QSet<QString> found; // one file often serves many instances
    for (const VLT_VcdFile *file : m_records.list()) {
        if (found.contains(file->file))
            continue;
        if (!isActivityFile(file->file)) {
            showMessage(QMessageBox::Warning, this, tr("Warning"),
                        tr("The vcd file '%1' doesn't exist.").arg(file->file));
            return false;
        }
        found.insert(file->file);
    }
    return true;
}

void VcdFileWidget::modified()
{
    document()->setModified(true);
}

void VcdFileWidget::onNew()
{
    GuardedDialog<VcdFileSetDialog> dialog(new VcdFileSetDialog(m_view, this, nullptr));
    if (!dialog.exec())
        return;
    const int oldCount = m_records.list().size();
    m_records.list().append(dialog->data());
    showAdded(oldCount);
    modified();
}

void VcdFileWidget::onEditData(QModelIndex index)
{
    VLT_VcdFile *file = m_records.list().value(index.isValid() ? index.row() : -1);
    if (!file)
        return;
    GuardedDialog<VcdFileSetDialog> dialog(new VcdFileSetDialog(m_view, this, file));
    if (!dialog.exec())
        return;
    m_model.updateRow(m_records.list().indexOf(file));
    modified();
}

void VcdFileWidget::onShowContextMenu(QPoint point)
{
    showMenu(m_ui->tableView->viewport()->mapToGlobal(point));
}

void VcdFileWidget::onGlitchChanged()
{
    // The flag is part of the files' section, which is not written without files.
    if (!m_records.list().isEmpty())
        modified();
}

void VcdFileWidget::onIOUnitChanged()
{
    changeUnit(ioRate());
}

void VcdFileWidget::onRemainUnitChanged()
{
    changeUnit(remainRate());
}

void VcdFileWidget::changeUnit(const DefaultRate &rate)
{
    if (rate.unit->currentIndex() == TOGGLE_RATE) {
        // Before the limit, which would make 200 of a larger value.
        if (rate.value->value() > MAX_TOGGLE_RATE)
            rate.value->setValue(DEFAULT_TOGGLE_RATE);
        rate.value->setMaximum(MAX_TOGGLE_RATE);
    } else {
        rate.value->setMaximum(MAX_SIGNAL_RATE);
    }
    modified();
}

} // namespace VLT
