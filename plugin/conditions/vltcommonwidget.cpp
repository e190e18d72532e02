#include "conditions/vltcommonwidget.h"

#include "conditions/conditionsform.h"
#include "conditions/supplyfields.h"
#include "config/environmentcodes.h"
#include "config/sections.h"
#include "tables/document.h"
#include "ui_vltcommonwidget.h"
#include "widgets/dimlabels.h"
#include "widgets/wheelguard.h"

#include "core/idecore.h"
#include "dev/devicedb.h"
#include "qutil/eventmanager.h"
#include "qutil/ievent.h"
#include "te/proinfomanager.h"
#include "zum/voltage.h"

#include <algorithm>

namespace VLT {

namespace {

/// A grid of labels and fields, and its indentation relative to the outer grids.
struct Grid
{
    QGridLayout *layout;
    int inset;
};

Grid insideOf(const QGroupBox *box, QGridLayout *layout)
{
    return {layout, box->contentsMargins().left() + box->layout()->contentsMargins().left()};
}

/// Aligns the labels and fields of all `grids`.
void alignColumns(const QVector<Grid> &grids)
{
    for (int column : {0, 1}) {
        const auto insetOf = [column](const Grid &grid) { return column == 0 ? grid.inset : 0; };
        int width = 0;
        for (const Grid &grid : grids) {
            for (int row = 0; row < grid.layout->rowCount(); ++row) {
                QLayoutItem *item = grid.layout->itemAtPosition(row, column);
                if (item && !qobject_cast<QGroupBox *>(item->widget()))
                    width = std::max(width, item->sizeHint().width() + insetOf(grid));
            }
        }
        for (const Grid &grid : grids)
            grid.layout->setColumnMinimumWidth(column, width - insetOf(grid));
    }
}

Supplies suppliesOf(const ZUM::Voltage &voltage)
{
    Supplies supplies;
    supplies.supply[VCC] = {voltage.getVCCMin(), voltage.getVCCMax(), voltage.getVCCDefaultValue()};
    supplies.supply[VCCX] = {voltage.getVCCXMin(), voltage.getVCCXMax(),
                             voltage.getVCCXDefaultValue()};
    supplies.supply[VCCLDO] = {voltage.getVCCLDOMin(), voltage.getVCCLDOMax(),
                               voltage.getVCCLDODefaultValue()};
    supplies.vccIsVccx = voltage.isVCCVCCXShortCircuit();
    supplies.vccxIsVccLdo = voltage.isVCCXVCCLDOShortCircuit();
    supplies.vccIsVccLdo = voltage.isVCCVCCLDOShortCircuit();
    return supplies;
}

} // namespace

VLTSettingWidget::VLTSettingWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_document(documentOf(view))
    , m_ui(std::make_unique<Ui::VLTSettingWidget>())
{
    QUtil::EventManager::instance()->subscribe(
        this, QString::fromLatin1(Environment::EVENT_DEVICE_CHANGE));
    m_ui->setupUi(this);
    alignGrids();
    dimLabelsWithFields(this);
    nameFields();
    // Like the other pages, this one has its tab's background.
    m_ui->scrollArea->viewport()->setAutoFillBackground(false);
    m_ui->contents->setAutoFillBackground(false);
    connectFields();
    m_supplies = new SupplyFields({{{m_ui->labelVCC, m_ui->doubleSpinVCC},
                                    {m_ui->labelVCCX, m_ui->doubleSpinVCCX},
                                    {m_ui->labelVCCLDO, m_ui->doubleSpinVCCLDO}}},
                                  this);
    // Before the page reads a file, because a file without voltages gets the device's defaults.
    if (updateVoltageInfo())
        m_supplies->setDefaults();
}

/// For screen readers.
void VLTSettingWidget::nameFields()
{
    // These two have check boxes instead of labels.
    m_ui->lineEditJA->setAccessibleName(tr("Custom Theta JA"));
    m_ui->spinJunctionTemp->setAccessibleName(tr("Junction Temperature"));
    // A button alone would be called by the title of its group.
    for (const QButtonGroup *group : {m_ui->buttonGroupHeat, m_ui->buttonGroupBoard}) {
        const QString title =
            group == m_ui->buttonGroupHeat ? m_ui->groupHeat->title() : m_ui->groupBoard->title();
        const auto buttons = group->buttons();
        for (QAbstractButton *button : buttons)
            button->setAccessibleName(tr("%1: %2").arg(title, button->text()));
    }
    m_ui->scrollArea->setAccessibleName(tr("Operating Conditions"));
}

void VLTSettingWidget::alignGrids()
{
    alignColumns({{m_ui->gridConditions, 0},
                  {m_ui->gridEnvironment, 0},
                  {m_ui->gridVoltage, 0},
                  insideOf(m_ui->groupHeat, m_ui->gridHeat),
                  insideOf(m_ui->groupBoard, m_ui->gridBoard)});
}

bool VLTSettingWidget::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    // By now the children have the new font and thus new sizes.
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        alignGrids();
    return handled;
}

VLTSettingWidget::~VLTSettingWidget()
{
    QUtil::EventManager::instance()->unsubscribe(
        this, QString::fromLatin1(Environment::EVENT_DEVICE_CHANGE));
}

void VLTSettingWidget::connectFields()
{
    using Page = VLTSettingWidget;
    constexpr auto indexChanged = qOverload<int>(&QComboBox::currentIndexChanged);
    constexpr auto valueChanged = qOverload<double>(&QDoubleSpinBox::valueChanged);

    connect(m_ui->comboGrade, indexChanged, this, &Page::modified);
    connect(m_ui->comboGrade, indexChanged, this, &Page::updateJunctionTempRange);
    connect(m_ui->comboProcess, indexChanged, this, &Page::modified);
    connect(m_ui->comboAirFlow, indexChanged, this, &Page::modified);
    connect(m_ui->spinAmbTemp, valueChanged, this, &Page::modified);
    connect(m_ui->spinBoardTemp, valueChanged, this, &Page::modified);
    connect(m_ui->lineEditJA, valueChanged, this, &Page::modified);
    connect(m_ui->spinJunctionTemp, valueChanged, this, &Page::modified);
    connect(m_ui->lineEditSA, &QDoubleSpinBox::textChanged, this, &Page::modified);
    connect(m_ui->lineEditJB, &QDoubleSpinBox::textChanged, this, &Page::modified);
    connect(m_ui->checkJA, &QCheckBox::clicked, this, &Page::onChangeThetaEnable);
    connect(m_ui->buttonGroupHeat, qOverload<QAbstractButton *>(&QButtonGroup::buttonClicked), this,
            &Page::onHeatChanged);
    connect(m_ui->buttonGroupBoard, qOverload<QAbstractButton *>(&QButtonGroup::buttonClicked),
            this, &Page::onBoardTMChanged);
    connect(m_ui->checkBoxJunctionTemp, &QCheckBox::toggled, this, &Page::onJunctionTempChanged);

    for (QComboBox *combo : {m_ui->comboGrade, m_ui->comboProcess, m_ui->comboAirFlow})
        ignoreWheelWithoutFocus(combo);
}

void VLTSettingWidget::readData(QDomElement *root)
{
    showConditions(readConditions(*root), *m_ui);
    onChangeThetaEnable();
    onJunctionTempChanged();
}

void VLTSettingWidget::writeData(QXmlStreamWriter *writer) const
{
    writeConditions(writer, conditionsOf(*m_ui, this));
}

void VLTSettingWidget::collect(Configuration *configuration) const
{
    configuration->conditions = conditionsOf(*m_ui, this);
}

void VLTSettingWidget::modified()
{
    m_document->setModified(true);
}

// A given junction temperature overrides everything; otherwise theta JA overrides heat sink and
// board; otherwise the heat sink decides. Each slot applies the rules below it in this chain.

void VLTSettingWidget::onJunctionTempChanged()
{
    const bool given = m_ui->checkBoxJunctionTemp->isChecked();
    m_ui->spinJunctionTemp->setEnabled(given);
    m_ui->spinAmbTemp->setEnabled(!given);
    m_ui->checkJA->setEnabled(!given);
    m_ui->lineEditJA->setEnabled(!given);
    m_ui->groupHeat->setEnabled(!given);
    m_ui->groupBoard->setEnabled(!given);
    if (!given)
        onChangeThetaEnable();
    modified();
}

void VLTSettingWidget::onChangeThetaEnable()
{
    const bool given = m_ui->checkJA->isChecked();
    m_ui->groupHeat->setEnabled(!given);
    m_ui->groupBoard->setEnabled(!given);
    m_ui->lineEditJA->setEnabled(given);
    if (!given)
        onHeatChanged();
    modified();
}

void VLTSettingWidget::onHeatChanged()
{
    const bool none = m_ui->radioHeatNone->isChecked();
    const bool custom = m_ui->radioHeatCumstom->isChecked();
    if (none)
        m_ui->radioBoardNone->setChecked(true); // no heat sink means no board model
    else if (custom)
        m_ui->comboAirFlow->setCurrentIndex(0);
    m_ui->groupBoard->setEnabled(!none);
    m_ui->comboAirFlow->setEnabled(!custom);
    m_ui->lineEditSA->setEnabled(custom);
    onBoardTMChanged();
}

void VLTSettingWidget::onBoardTMChanged()
{
    m_ui->lineEditJB->setEnabled(m_ui->radioBoardCustom->isChecked());
    m_ui->spinBoardTemp->setEnabled(!m_ui->radioBoardNone->isChecked());
    modified();
}

void VLTSettingWidget::onValueChanged()
{
    updateDoubleSpin();
    modified();
}

void VLTSettingWidget::updateJunctionTempRange()
{
    const Range range = junctionRange(m_ui->comboGrade->currentText());
    m_ui->spinJunctionTemp->setRange(range.minimum, range.maximum);
}

bool VLTSettingWidget::updateVoltageInfo()
{
    const DEV::ChipInfo chip = TE::ProInfoManager::instance()->chipInfo();
    const Supplies supplies = suppliesOf(ZUM::Voltage(chip.device, chip.package));
    if (!supplies.supply[VCC].exists())
        return false;
    m_supplies->setSupplies(supplies);
    m_chipInfo = chip;
    return true;
}

void VLTSettingWidget::checkVlotageShow()
{
    m_supplies->showExisting();
}

void VLTSettingWidget::setDevice(DEV::DeviceArg device)
{
    m_ui->doubleSpinVCCX->setEnabled(!hasFixedVccx(device.partName));
}

void VLTSettingWidget::checkVoltageRange()
{
    m_supplies->applyRanges();
    updateDoubleSpin();
}

void VLTSettingWidget::updateDoubleSpin()
{
    if (m_supplies->keepTie())
        modified();
}

void VLTSettingWidget::connectVlotageDoubleSpin()
{
    for (QDoubleSpinBox *spinBox :
         {m_ui->doubleSpinVCC, m_ui->doubleSpinVCCX, m_ui->doubleSpinVCCLDO})
        connect(spinBox, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
                &VLTSettingWidget::onValueChanged);
}

void VLTSettingWidget::handleIEvent(const QUtil::IEvent *event)
{
    if (event->type() != QString::fromLatin1(Environment::EVENT_DEVICE_CHANGE))
        return;
    if (updateVoltageInfo()) {
        checkVlotageShow();
        checkVoltageRange();
        // Nothing else to update: the page shows only the device's supplies.
        if (const DEV::DeviceDb *devices = Core::IdeCore::deviceDataBase())
            devices->findByID(TE::ProInfoManager::instance()->deviceID());
        return;
    }
    m_document->closeWithoutQuestion();
}

} // namespace VLT
