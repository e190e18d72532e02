#include "conditions/conditionsform.h"

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

// Enabled and shown are relative to the page: neither depends on whether its tab is the current
// one.

void addHeatSink(const Ui::VLTSettingWidget &form, const QWidget *page, Conditions *conditions)
{
    const QAbstractButton *sink = form.buttonGroupHeat->checkedButton();
    if (sink && sink->isEnabledTo(page))
        conditions->heatSink = sink->text();

    const bool customEnabled = form.radioHeatCumstom->isEnabledTo(page);
    if (form.radioHeatNone->isChecked() && form.radioHeatNone->isEnabledTo(page)) {
        conditions->airFlow = form.comboAirFlow->currentText();
    } else if (form.radioHeatCumstom->isChecked()) {
        if (customEnabled)
            conditions->thetaSA = Theta{true, form.lineEditSA->value()};
    } else if (customEnabled) {
        conditions->airFlow = form.comboAirFlow->currentText();
    }
}

void addBoard(const Ui::VLTSettingWidget &form, const QWidget *page, Conditions *conditions)
{
    const QAbstractButton *model = form.buttonGroupBoard->checkedButton();
    if (!model || !model->isEnabledTo(page))
        return;
    conditions->boardThermalModel = model->text();
    if (model == form.radioBoardCustom)
        conditions->thetaJB = Theta{true, form.lineEditJB->value()};
    if (model != form.radioBoardNone)
        conditions->boardTemp = form.spinBoardTemp->value();
}

} // namespace

Conditions conditionsOf(const Ui::VLTSettingWidget &form, const QWidget *page)
{
    const auto checkedAndEnabled = [page](const QAbstractButton *button) {
        return button->isChecked() && button->isEnabledTo(page);
    };
    const auto shown = [](const QDoubleSpinBox *spinBox) {
        return spinBox->isHidden() ? std::nullopt : std::make_optional(spinBox->value());
    };
    Conditions conditions;
    conditions.tempGrade = form.comboGrade->currentText();
    conditions.process = form.comboProcess->currentText();
    if (checkedAndEnabled(form.checkBoxJunctionTemp))
        conditions.junctionTemp = form.spinJunctionTemp->value();
    if (form.spinAmbTemp->isEnabledTo(page))
        conditions.ambientTemp = form.spinAmbTemp->value();
    conditions.vcc = shown(form.doubleSpinVCC);
    conditions.vccx = shown(form.doubleSpinVCCX);
    conditions.vccLdo = shown(form.doubleSpinVCCLDO);
    if (checkedAndEnabled(form.checkJA))
        conditions.thetaJA = Theta{true, form.lineEditJA->value()};
    addHeatSink(form, page, &conditions);
    addBoard(form, page, &conditions);
    return conditions;
}

void showConditions(const Conditions &conditions, const Ui::VLTSettingWidget &form)
{
    restore(conditions.tempGrade, form.comboGrade, Qt::MatchFixedString);
    restore(conditions.process, form.comboProcess, Qt::MatchFixedString);

    form.checkBoxJunctionTemp->setChecked(conditions.junctionTemp.has_value());
    restore(conditions.junctionTemp, form.spinJunctionTemp);
    restore(conditions.ambientTemp, form.spinAmbTemp);
    restore(conditions.boardTemp, form.spinBoardTemp);
    restore(conditions.airFlow, form.comboAirFlow, Qt::MatchExactly | Qt::MatchCaseSensitive);
    restore(conditions.heatSink, form.buttonGroupHeat);
    restore(conditions.boardThermalModel, form.buttonGroupBoard);

    if (conditions.thetaJA) {
        form.checkJA->setChecked(conditions.thetaJA->given);
        form.lineEditJA->setEnabled(conditions.thetaJA->given);
        restore(conditions.thetaJA, form.lineEditJA);
    }
    restore(conditions.thetaSA, form.lineEditSA);
    restore(conditions.thetaJB, form.lineEditJB);

    restore(conditions.vcc, form.doubleSpinVCC);
    restore(conditions.vccx, form.doubleSpinVCCX);
    restore(conditions.vccLdo, form.doubleSpinVCCLDO);
}

} // namespace VLT
