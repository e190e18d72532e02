#include "check/rules/rules.h"

#include "config/filenames.h"
#include "config/plainnumber.h"
#include "config/supplyrules.h"
#include "host/dev/devicecatalogue.h"

#include <QStringList>

#include <array>

namespace Check {

namespace {

using VLT::Conditions;

VLT::Supplies suppliesOf(const DEV::SupplyData &data)
{
    const auto supply = [](const DEV::Supply &supply) {
        return VLT::Supply{supply.min, supply.max, supply.defaultValue};
    };
    return {{supply(data.vcc), supply(data.vccx), supply(data.vccldo)},
            data.vccVccx,
            data.vccxVccldo,
            data.vccVccldo};
}

/// One supply of a device, and what the file says of it.
struct SupplyEntry
{
    QString node;
    VLT::Supply supply;
    std::optional<double> stored;

    bool isOutside() const { return stored && supply.isOutside(VLT::voltageInField(*stored)); }

    /// What the field shows before ties move it.
    double opened() const
    {
        return !stored || isOutside() ? supply.defaultVoltage() : VLT::voltageInField(*stored);
    }
};

class ConditionCheck
{
public:
    ConditionCheck(const ConfigurationInput &input, Findings *findings)
        : m_conditions(input.configuration.conditions)
        , m_lines(input.report.lines.elements)
        , m_findings(findings)
    {
    }

    void checkIgnored();
    void checkSupplies(const QString &device);

private:
    void add(const char *rule, const QString &node, const QString &message,
             const QString &proposal = {})
    {
        m_findings->add(rule, m_lines.value(node), node, message, proposal);
    }

    void ignore(const QStringList &nodes, const QString &because)
    {
        for (const QString &node : nodes) {
            if (m_lines.contains(node))
                add("ignored", node,
                    QStringLiteral("%1 has no effect and is lost on the next save: %2")
                        .arg(node, because));
        }
    }

    void checkSupply(const SupplyEntry &entry, const QString &device);
    void checkTie(const SupplyEntry &leader, const SupplyEntry &follower, const QString &device);

    const Conditions &m_conditions;
    const QHash<QString, int> &m_lines;
    Findings *m_findings;
};

/// A given junction temperature overrules everything; else theta JA overrules heat sink and board;
/// else the heat sink decides.
void ConditionCheck::checkIgnored()
{
    using namespace VLT;
    const QStringList environment = {NODE_HEAT_SINK,       NODE_AIR_FLOW,
                                     NODE_CUSTOM_THETA_SA, NODE_BOARD_THERMAL_MODEL,
                                     NODE_CUSTOM_THETA_JB, NODE_BOARD_TEMP};
    if (m_conditions.junctionTemp) {
        ignore(QStringList{NODE_AMBIENT_TEMP, NODE_CUSTOM_THETA_JA} + environment,
               QStringLiteral("the junction temperature is given"));
        return;
    }
    if (m_conditions.thetaJA && m_conditions.thetaJA->given) {
        ignore(environment, QStringLiteral("theta JA is given"));
        return;
    }
    const QString none = QStringLiteral("None");
    const QString custom = QStringLiteral("Custom");
    const QString sink = m_conditions.heatSink.value_or(none);
    const QString board = m_conditions.boardThermalModel.value_or(none);
    if (sink == custom)
        ignore({NODE_AIR_FLOW}, QStringLiteral("the heat sink is a custom one"));
    else
        ignore({NODE_CUSTOM_THETA_SA}, QStringLiteral("the heat sink is not a custom one"));
    if (sink == none) {
        ignore({NODE_BOARD_THERMAL_MODEL, NODE_CUSTOM_THETA_JB, NODE_BOARD_TEMP},
               QStringLiteral("there is no heat sink"));
        return;
    }
    if (board != custom)
        ignore({NODE_CUSTOM_THETA_JB}, QStringLiteral("the board model is not a custom one"));
    if (board == none)
        ignore({NODE_BOARD_TEMP}, QStringLiteral("there is no board model"));
}

void ConditionCheck::checkSupply(const SupplyEntry &entry, const QString &device)
{
    if (!entry.stored)
        return;
    const QString value = VLT::numberText(*entry.stored);
    if (!entry.supply.exists())
        add("supply-absent", entry.node,
            QStringLiteral("%1 does not have the supply %2: opening drops it")
                .arg(device, entry.node));
    else if (entry.isOutside())
        add("supply-range", entry.node,
            QStringLiteral("%1 V is outside the %2 to %3 V of %4: opening replaces it by %5")
                .arg(value, entry.supply.minimum, entry.supply.maximum, device,
                     VLT::numberText(entry.supply.defaultVoltage())),
            VLT::numberText(entry.supply.defaultVoltage()));
}

void ConditionCheck::checkTie(const SupplyEntry &leader, const SupplyEntry &follower,
                              const QString &device)
{
    if (follower.stored && !follower.isOutside() && follower.opened() != leader.opened())
        add("supply-range", follower.node,
            QStringLiteral("%1 is one supply with %2 on %3: opening replaces it by %4")
                .arg(follower.node, leader.node, device, VLT::numberText(leader.opened())),
            VLT::numberText(leader.opened()));
}

void ConditionCheck::checkSupplies(const QString &device)
{
    const auto *catalogue = DEV::DeviceCatalogue::get();
    if (!catalogue->find(device)) {
        m_findings->add("device-unknown", 0, QString(),
                        QStringLiteral("the device %1 is not in the catalogue").arg(device));
        return;
    }
    const DEV::ChipInfo chip = catalogue->chipInfo(device);
    const VLT::Supplies supplies = suppliesOf(catalogue->supplies(chip.device, chip.package));
    const std::array<SupplyEntry, VLT::SUPPLY_COUNT> entries = {
        {{VLT::NODE_VCC, supplies.supply[VLT::VCC], m_conditions.vcc},
         {VLT::NODE_VCCX, supplies.supply[VLT::VCCX], m_conditions.vccx},
         {VLT::NODE_VCC_LDO, supplies.supply[VLT::VCCLDO], m_conditions.vccLdo}}};
    if (!entries[VLT::VCC].supply.exists()) {
        m_findings->add("device-unknown", 0, QString(),
                        QStringLiteral("%1 has no supply data: the editor does not open a "
                                       "configuration on it")
                            .arg(device));
        return;
    }
    for (const SupplyEntry &entry : entries)
        checkSupply(entry, device);
    if (const auto tie = supplies.tie())
        checkTie(entries[tie->leader], entries[tie->follower], device);
}

} // namespace

void checkConditions(const ConfigurationInput &input, const QString &device, Findings *findings)
{
    ConditionCheck check(input, findings);
    check.checkIgnored();
    if (!device.isEmpty())
        check.checkSupplies(device);
}

} // namespace Check
