// The page's elements of the configuration file.

#include "conditions/vltcommonwidget.h"

#include "config/filenames.h"
#include "config/plainnumber.h"
#include "ui_vltcommonwidget.h"

#include <QDomElement>
#include <QXmlStreamWriter>

#include <functional>

namespace VLT {

namespace {

const QLatin1String NOT_GIVEN("NA");

void writeText(QXmlStreamWriter *writer, const QString &element, const QString &text)
{
    writer->writeTextElement(element, text);
}

void writeNumber(QXmlStreamWriter *writer, const QString &element, const QDoubleSpinBox *spinBox)
{
    writeText(writer, element, numberText(spinBox->value()));
}

/// Hands the text of the first child called `element` to `use`; nothing when there is none.
void readText(const QDomElement &root, const QString &element,
              const std::function<void(const QString &)> &use)
{
    const QDomElement child = root.firstChildElement(element);
    if (!child.isNull())
        use(child.text());
}

void readNumber(const QDomElement &root, const QString &element, QDoubleSpinBox *spinBox)
{
    readText(root, element,
             [spinBox](const QString &text) { spinBox->setValue(numberFromText(text)); });
}

void readGivenNumber(const QDomElement &root, const QString &element, QDoubleSpinBox *spinBox)
{
    readText(root, element, [spinBox](const QString &text) {
        if (text != NOT_GIVEN)
            spinBox->setValue(numberFromText(text));
    });
}

void readChoice(const QDomElement &root, const QString &element, QComboBox *combo,
                Qt::MatchFlags match)
{
    readText(root, element, [combo, match](const QString &text) {
        combo->setCurrentIndex(qMax(0, combo->findText(text, match)));
    });
}

void readChoice(const QDomElement &root, const QString &element, const QButtonGroup *group)
{
    readText(root, element, [group](const QString &text) {
        const auto buttons = group->buttons();
        for (QAbstractButton *button : buttons) {
            if (button->text() == text) {
                button->setChecked(true);
                return;
            }
        }
    });
}

} // namespace

// Enabled means enabled within the page, shown means not hidden by it: neither depends on whether
// the page's tab is the open one.

void VLTSettingWidget::writeData(QXmlStreamWriter *writer) const
{
    const auto checkedAndEnabled = [this](const QAbstractButton *button) {
        return button->isChecked() && button->isEnabledTo(this);
    };
    writeText(writer, NODE_TEMP_GRADE, m_ui->comboGrade->currentText());
    writeText(writer, NODE_PROCESS, m_ui->comboProcess->currentText());
    if (checkedAndEnabled(m_ui->checkBoxJunctionTemp))
        writeNumber(writer, NODE_JUNCTION_TEMP, m_ui->spinJunctionTemp);
    if (m_ui->spinAmbTemp->isEnabledTo(this))
        writeNumber(writer, NODE_AMBIENT_TEMP, m_ui->spinAmbTemp);
    writeVoltages(writer);
    if (checkedAndEnabled(m_ui->checkJA))
        writeNumber(writer, NODE_CUSTOM_THETA_JA, m_ui->lineEditJA);
    writeHeatSink(writer);
    writeBoard(writer);
}

void VLTSettingWidget::writeVoltages(QXmlStreamWriter *writer) const
{
    if (!m_ui->doubleSpinVCC->isHidden())
        writeNumber(writer, NODE_VCC, m_ui->doubleSpinVCC);
    if (!m_ui->doubleSpinVCCX->isHidden())
        writeNumber(writer, NODE_VCCX, m_ui->doubleSpinVCCX);
    if (!m_ui->doubleSpinVCCLDO->isHidden())
        writeNumber(writer, NODE_VCC_LDO, m_ui->doubleSpinVCCLDO);
}

void VLTSettingWidget::writeHeatSink(QXmlStreamWriter *writer) const
{
    const QAbstractButton *sink = m_ui->buttonGroupHeat->checkedButton();
    if (sink && sink->isEnabledTo(this))
        writeText(writer, NODE_HEAT_SINK, sink->text());

    const bool customEnabled = m_ui->radioHeatCumstom->isEnabledTo(this);
    if (m_ui->radioHeatNone->isChecked() && m_ui->radioHeatNone->isEnabledTo(this)) {
        writeText(writer, NODE_AIR_FLOW, m_ui->comboAirFlow->currentText());
    } else if (m_ui->radioHeatCumstom->isChecked()) {
        if (customEnabled)
            writeNumber(writer, NODE_CUSTOM_THETA_SA, m_ui->lineEditSA);
    } else if (customEnabled) {
        writeText(writer, NODE_AIR_FLOW, m_ui->comboAirFlow->currentText());
    }
}

void VLTSettingWidget::writeBoard(QXmlStreamWriter *writer) const
{
    const QAbstractButton *model = m_ui->buttonGroupBoard->checkedButton();
    if (!model || !model->isEnabledTo(this))
        return;
    writeText(writer, NODE_BOARD_THERMAL_MODEL, model->text());
    if (model == m_ui->radioBoardCustom)
        writeNumber(writer, NODE_CUSTOM_THETA_JB, m_ui->lineEditJB);
    if (model != m_ui->radioBoardNone)
        writeNumber(writer, NODE_BOARD_TEMP, m_ui->spinBoardTemp);
}

void VLTSettingWidget::readData(QDomElement *root)
{
    readChoice(*root, NODE_TEMP_GRADE, m_ui->comboGrade, Qt::MatchFixedString);
    readChoice(*root, NODE_PROCESS, m_ui->comboProcess, Qt::MatchFixedString);

    m_ui->checkBoxJunctionTemp->setChecked(!root->firstChildElement(NODE_JUNCTION_TEMP).isNull());
    readNumber(*root, NODE_JUNCTION_TEMP, m_ui->spinJunctionTemp);
    readNumber(*root, NODE_AMBIENT_TEMP, m_ui->spinAmbTemp);
    readNumber(*root, NODE_BOARD_TEMP, m_ui->spinBoardTemp);
    readChoice(*root, NODE_AIR_FLOW, m_ui->comboAirFlow, Qt::MatchExactly | Qt::MatchCaseSensitive);
    readChoice(*root, NODE_HEAT_SINK, m_ui->buttonGroupHeat);
    readChoice(*root, NODE_BOARD_THERMAL_MODEL, m_ui->buttonGroupBoard);

    readText(*root, NODE_CUSTOM_THETA_JA, [this](const QString &text) {
        const bool given = text != NOT_GIVEN;
        m_ui->checkJA->setChecked(given);
        m_ui->lineEditJA->setEnabled(given);
        if (given)
            m_ui->lineEditJA->setValue(numberFromText(text));
    });
    readGivenNumber(*root, NODE_CUSTOM_THETA_SA, m_ui->lineEditSA);
    readGivenNumber(*root, NODE_CUSTOM_THETA_JB, m_ui->lineEditJB);

    readNumber(*root, NODE_VCC, m_ui->doubleSpinVCC);
    readNumber(*root, NODE_VCCX, m_ui->doubleSpinVCCX);
    readNumber(*root, NODE_VCC_LDO, m_ui->doubleSpinVCCLDO);

    onChangeThetaEnable();
    onJunctionTempChanged();
}

} // namespace VLT
