// The page's elements of the configuration file.

#include "conditions/vltcommonwidget.h"

#include "config/sections.h"
#include "ui_vltcommonwidget.h"

namespace VLT {

namespace {

void restore(const std::optional<double> &value, QDoubleSpinBox *spinBox)
{
    if (value)
        spinBox->setValue(*value);
}

void restore(const std::optional<Theta> &theta, QDoubleSpinBox *spinBox)
{
    if (theta && theta->given)
        spinBox->setValue(theta->value);
}

void restore(const std::optional<QString> &text, QComboBox *combo, Qt::MatchFlags match)
{
    if (text)
        combo->setCurrentIndex(qMax(0, combo->findText(*text, match)));
}

void restore(const std::optional<QString> &text, const QButtonGroup *group)
{
    const auto buttons = group->buttons();
    for (QAbstractButton *button : buttons) {
        if (text && button->text() == *text) {
            button->setChecked(true);
            return;
        }
    }
}

} // namespace

void VLTSettingWidget::writeData(QXmlStreamWriter *writer) const
{
    writeConditions(writer, conditions());
}

void VLTSettingWidget::collect(Configuration *configuration) const
{
    configuration->conditions = conditions();
}

// Enabled means enabled within the page, shown means not hidden by it: neither depends on whether
// the page's tab is the open one.

Conditions VLTSettingWidget::conditions() const
{
    const auto checkedAndEnabled = [this](const QAbstractButton *button) {
        return button->isChecked() && button->isEnabledTo(this);
    };
    const auto shown = [](const QDoubleSpinBox *spinBox) {
        return spinBox->isHidden() ? std::nullopt : std::make_optional(spinBox->value());
    };
    Conditions conditions;
    conditions.tempGrade = m_ui->comboGrade->currentText();
    conditions.process = m_ui->comboProcess->currentText();
    if (checkedAndEnabled(m_ui->checkBoxJunctionTemp))
        conditions.junctionTemp = m_ui->spinJunctionTemp->value();
    if (m_ui->spinAmbTemp->isEnabledTo(this))
        conditions.ambientTemp = m_ui->spinAmbTemp->value();
    conditions.vcc = shown(m_ui->doubleSpinVCC);
    conditions.vccx = shown(m_ui->doubleSpinVCCX);
    conditions.vccLdo = shown(m_ui->doubleSpinVCCLDO);
    if (checkedAndEnabled(m_ui->checkJA))
        conditions.thetaJA = Theta{true, m_ui->lineEditJA->value()};
    addHeatSink(&conditions);
    addBoard(&conditions);
    return conditions;
}

void VLTSettingWidget::addHeatSink(Conditions *conditions) const
{
    const QAbstractButton *sink = m_ui->buttonGroupHeat->checkedButton();
    if (sink && sink->isEnabledTo(this))
        conditions->heatSink = sink->text();

    const bool customEnabled = m_ui->radioHeatCumstom->isEnabledTo(this);
    if (m_ui->radioHeatNone->isChecked() && m_ui->radioHeatNone->isEnabledTo(this)) {
        conditions->airFlow = m_ui->comboAirFlow->currentText();
    } else if (m_ui->radioHeatCumstom->isChecked()) {
        if (customEnabled)
            conditions->thetaSA = Theta{true, m_ui->lineEditSA->value()};
    } else if (customEnabled) {
        conditions->airFlow = m_ui->comboAirFlow->currentText();
    }
}

void VLTSettingWidget::addBoard(Conditions *conditions) const
{
    const QAbstractButton *model = m_ui->buttonGroupBoard->checkedButton();
    if (!model || !model->isEnabledTo(this))
        return;
    conditions->boardThermalModel = model->text();
    if (model == m_ui->radioBoardCustom)
        conditions->thetaJB = Theta{true, m_ui->lineEditJB->value()};
    if (model != m_ui->radioBoardNone)
        conditions->boardTemp = m_ui->spinBoardTemp->value();
}

void VLTSettingWidget::readData(QDomElement *root)
{
    const Conditions conditions = readConditions(*root);
    restore(conditions.tempGrade, m_ui->comboGrade, Qt::MatchFixedString);
    restore(conditions.process, m_ui->comboProcess, Qt::MatchFixedString);

    m_ui->checkBoxJunctionTemp->setChecked(conditions.junctionTemp.has_value());
    restore(conditions.junctionTemp, m_ui->spinJunctionTemp);
    restore(conditions.ambientTemp, m_ui->spinAmbTemp);
    restore(conditions.boardTemp, m_ui->spinBoardTemp);
    restore(conditions.airFlow, m_ui->comboAirFlow, Qt::MatchExactly | Qt::MatchCaseSensitive);
    restore(conditions.heatSink, m_ui->buttonGroupHeat);
    restore(conditions.boardThermalModel, m_ui->buttonGroupBoard);

    if (conditions.thetaJA) {
        m_ui->checkJA->setChecked(conditions.thetaJA->given);
        m_ui->lineEditJA->setEnabled(conditions.thetaJA->given);
        restore(conditions.thetaJA, m_ui->lineEditJA);
    }
    restore(conditions.thetaSA, m_ui->lineEditSA);
    restore(conditions.thetaJB, m_ui->lineEditJB);

    restore(conditions.vcc, m_ui->doubleSpinVCC);
    restore(conditions.vccx, m_ui->doubleSpinVCCX);
    restore(conditions.vccLdo, m_ui->doubleSpinVCCLDO);

    onChangeThetaEnable();
    onJunctionTempChanged();
}

} // namespace VLT
