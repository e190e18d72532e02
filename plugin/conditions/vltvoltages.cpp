// The rules that tie the supply voltages of the page to the device.

#include "conditions/vltcommonwidget.h"

#include "config/plainnumber.h"
#include "ui_vltcommonwidget.h"

#include "te/proinfomanager.h"
#include "zum/voltage.h"

#include <algorithm>
#include <array>

namespace VLT {

namespace {

// A 32-bit number: the margin in use is 1.0000000168623835e-16.
constexpr float MARGIN = 1e-16F;

bool lessThan(double a, double b)
{
    return a - b < -static_cast<double>(MARGIN);
}

bool greaterThan(double a, double b)
{
    return a - b > static_cast<double>(MARGIN);
}

/// The models whose VCCX the user may not set.
bool hasFixedVCCX(const QString &partName)
{
    static const std::array<QLatin1String, 8> models = {
        QLatin1String("QF1-01"), QLatin1String("QF1-02"), QLatin1String("QF1-03"),
        QLatin1String("QF1-04"), QLatin1String("QF1-05"), QLatin1String("QF1-06"),
        QLatin1String("QF1-07"), QLatin1String("QF1-08")};
    return std::any_of(models.begin(), models.end(),
                       [&partName](QLatin1String model) { return partName == model; });
}

/// Makes `follower` show what `leader` shows. Compared are the texts: what differs only behind the
/// last shown digit is equal. True when it changed.
bool follow(QDoubleSpinBox *follower, const QDoubleSpinBox *leader)
{
    if (follower->text() == leader->text())
        return false;
    follower->setValue(leader->value());
    return true;
}

} // namespace

bool VLTSettingWidget::updateVoltageInfo()
{
    const DEV::ChipInfo chip = TE::ProInfoManager::instance()->chipInfo();
    auto voltage = std::make_unique<ZUM::Voltage>(chip.device, chip.package);
    if (voltage->getVCCDefaultValue().isEmpty())
        return false;
    m_voltage = std::move(voltage);
    m_chipInfo = chip;
    return true;
}

void VLTSettingWidget::setVoltageDefaults()
{
    m_ui->doubleSpinVCC->setValue(numberFromText(m_voltage->getVCCDefaultValue()));
    m_ui->doubleSpinVCCX->setValue(numberFromText(m_voltage->getVCCXDefaultValue()));
    m_ui->doubleSpinVCCLDO->setValue(numberFromText(m_voltage->getVCCLDODefaultValue()));
}

void VLTSettingWidget::checkVlotageShow()
{
    if (!m_voltage)
        return;
    const auto show = [](QWidget *label, QWidget *spinBox, const QString &defaultValue) {
        label->setVisible(!defaultValue.isEmpty());
        spinBox->setVisible(!defaultValue.isEmpty());
    };
    show(m_ui->labelVCC, m_ui->doubleSpinVCC, m_voltage->getVCCDefaultValue());
    show(m_ui->labelVCCX, m_ui->doubleSpinVCCX, m_voltage->getVCCXDefaultValue());
    show(m_ui->labelVCCLDO, m_ui->doubleSpinVCCLDO, m_voltage->getVCCLDODefaultValue());

    // VCC is the supply that the user sets; those that are one with it follow.
    const bool ownVCCX = !m_voltage->isVCCVCCXShortCircuit();
    m_ui->labelVCCX->setEnabled(ownVCCX);
    m_ui->doubleSpinVCCX->setEnabled(ownVCCX);
    const bool ownVCCLDO =
        !m_voltage->isVCCXVCCLDOShortCircuit() && !m_voltage->isVCCVCCLDOShortCircuit();
    m_ui->labelVCCLDO->setEnabled(ownVCCLDO);
    m_ui->doubleSpinVCCLDO->setEnabled(ownVCCLDO);
}

void VLTSettingWidget::setDevice(DEV::DeviceArg device)
{
    m_ui->doubleSpinVCCX->setEnabled(!hasFixedVCCX(device.partName));
}

void VLTSettingWidget::checkVoltageRange()
{
    if (!m_voltage)
        return;
    struct Supply
    {
        QDoubleSpinBox *spinBox;
        QString minimum;
        QString maximum;
        QString defaultValue;
        double value;
    };
    // The values as they are before a range clamps them or a tie moves them.
    const std::array<Supply, 3> supplies = {
        Supply{m_ui->doubleSpinVCC, m_voltage->getVCCMin(), m_voltage->getVCCMax(),
               m_voltage->getVCCDefaultValue(), m_ui->doubleSpinVCC->value()},
        Supply{m_ui->doubleSpinVCCX, m_voltage->getVCCXMin(), m_voltage->getVCCXMax(),
               m_voltage->getVCCXDefaultValue(), m_ui->doubleSpinVCCX->value()},
        Supply{m_ui->doubleSpinVCCLDO, m_voltage->getVCCLDOMin(), m_voltage->getVCCLDOMax(),
               m_voltage->getVCCLDODefaultValue(), m_ui->doubleSpinVCCLDO->value()}};
    for (const Supply &supply : supplies)
        supply.spinBox->setRange(numberFromText(supply.minimum), numberFromText(supply.maximum));
    for (const Supply &supply : supplies) {
        // The limits as the spin box holds them, so that a value exactly at one stays.
        const bool outside = lessThan(supply.value, supply.spinBox->minimum()) ||
                             greaterThan(supply.value, supply.spinBox->maximum());
        if (outside && !supply.spinBox->isHidden())
            supply.spinBox->setValue(numberFromText(supply.defaultValue));
    }
    updateDoubleSpin();
}

void VLTSettingWidget::updateDoubleSpin()
{
    if (!m_voltage)
        return;
    // Only the first tie that applies is kept.
    bool changed = false;
    if (m_voltage->isVCCVCCXShortCircuit())
        changed = follow(m_ui->doubleSpinVCCX, m_ui->doubleSpinVCC);
    else if (m_voltage->isVCCXVCCLDOShortCircuit())
        changed = follow(m_ui->doubleSpinVCCLDO, m_ui->doubleSpinVCCX);
    else if (m_voltage->isVCCVCCLDOShortCircuit())
        changed = follow(m_ui->doubleSpinVCCLDO, m_ui->doubleSpinVCC);
    if (changed)
        modified();
}

void VLTSettingWidget::connectVlotageDoubleSpin()
{
    for (QDoubleSpinBox *spinBox :
         {m_ui->doubleSpinVCC, m_ui->doubleSpinVCCX, m_ui->doubleSpinVCCLDO})
        connect(spinBox, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
                &VLTSettingWidget::onValueChanged);
}

} // namespace VLT
