#include "conditions/supplyfields.h"

#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QStatusTipEvent>

namespace VLT {

namespace {

QString supplyName(int supply)
{
    static const std::array<QString, SUPPLY_COUNT> names = {
        QStringLiteral("VCC"), QStringLiteral("VCCX"), QStringLiteral("VCCLDO")};
    return names.at(size_t(supply));
}

} // namespace

SupplyFields::SupplyFields(const std::array<Field, SUPPLY_COUNT> &fields, QWidget *parent)
    : QObject(parent)
    , m_fields(fields)
{
    for (const Field &field : m_fields) {
        QDoubleSpinBox *spinBox = field.spinBox;
        // Values outside the range cannot be typed; the status bar says why.
        const auto tell = [spinBox](const QString &text) {
            QStatusTipEvent tip(text);
            QCoreApplication::sendEvent(spinBox, &tip);
        };
        const auto *line = spinBox->findChild<QLineEdit *>();
        connect(line, &QLineEdit::inputRejected, spinBox,
                [tell, spinBox] { tell(spinBox->toolTip()); });
        connect(line, &QLineEdit::textEdited, spinBox, [tell] { tell(QString()); });
    }
}

void SupplyFields::setDefaults()
{
    if (!m_supplies)
        return;
    for (size_t id = 0; id < SUPPLY_COUNT; ++id)
        m_fields[id].spinBox->setValue(m_supplies->supply[id].defaultVoltage());
}

void SupplyFields::showExisting()
{
    if (!m_supplies)
        return;
    for (size_t id = 0; id < SUPPLY_COUNT; ++id) {
        const bool exists = m_supplies->supply[id].exists();
        m_fields[id].label->setVisible(exists);
        m_fields[id].spinBox->setVisible(exists);
    }
    for (const SupplyId id : {VCCX, VCCLDO}) {
        m_fields[id].label->setEnabled(m_supplies->isOwn(id));
        m_fields[id].spinBox->setEnabled(m_supplies->isOwn(id));
    }
    explain();
}

void SupplyFields::explain()
{
    for (const SupplyId id : {VCC, VCCX, VCCLDO}) {
        const Supply &supply = m_supplies->supply[id];
        QString tip = tr("%1: %2 V to %3 V").arg(supplyName(id), supply.minimum, supply.maximum);
        if (!m_supplies->isOwn(id))
            tip +=
                tr("; one supply with %1 on this device").arg(supplyName(m_supplies->partner(id)));
        m_fields[id].spinBox->setToolTip(tip);
    }
}

void SupplyFields::applyRanges()
{
    if (!m_supplies)
        return;
    // Read before a range clamps the values or the tie changes them.
    std::array<double, SUPPLY_COUNT> values;
    for (size_t id = 0; id < SUPPLY_COUNT; ++id)
        values[id] = m_fields[id].spinBox->value();
    for (size_t id = 0; id < SUPPLY_COUNT; ++id) {
        const Range range = m_supplies->supply[id].range();
        m_fields[id].spinBox->setRange(range.minimum, range.maximum);
    }
    for (size_t id = 0; id < SUPPLY_COUNT; ++id) {
        const Supply &supply = m_supplies->supply[id];
        if (supply.isOutside(values[id]) && !m_fields[id].spinBox->isHidden())
            m_fields[id].spinBox->setValue(supply.defaultVoltage());
    }
}

bool SupplyFields::keepTie()
{
    const auto tie = m_supplies ? m_supplies->tie() : std::nullopt;
    if (!tie)
        return false;
    const QDoubleSpinBox *leader = m_fields[tie->leader].spinBox;
    QDoubleSpinBox *follower = m_fields[tie->follower].spinBox;
    // Compares the texts, so that differences beyond the last shown digit do not count.
    if (follower->text() == leader->text())
        return false;
    follower->setValue(leader->value());
    return true;
}

} // namespace VLT
