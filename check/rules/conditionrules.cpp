#include "check/rules/rules.h"

#include "config/filenames.h"
#include "config/limits.h"
#include "config/plainnumber.h"
#include "host/dev/devicecatalogue.h"

#include <QStringList>

#include <cmath>

namespace Check {

namespace {

using VLT::Conditions;

// Decimals of the voltage fields; what is beyond them is lost when the file is opened.
constexpr int VOLTAGE_DECIMALS = 3;

double asInField(double voltage)
{
    const double limited = qBound(VLT::VOLTAGE.minimum, voltage, VLT::VOLTAGE.maximum);
    return QString::number(limited, 'f', VOLTAGE_DECIMALS).toDouble();
}

/// One supply of a device, and what the file says of it.
struct SupplyEntry
{
    QString node;
    DEV::Supply supply;
    std::optional<double> stored;

    bool exists() const { return !supply.defaultValue.isEmpty(); }
    double defaultValue() const { return asInField(VLT::numberFromText(supply.defaultValue)); }

    bool isOutside() const
    {
        return stored && (asInField(*stored) < asInField(VLT::numberFromText(supply.min)) ||
                          asInField(*stored) > asInField(VLT::numberFromText(supply.max)));
    }

    /// What the field shows before ties move it.
    double opened() const { return !stored || isOutside() ? defaultValue() : asInField(*stored); }
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
    if (!entry.exists())
        add("supply-absent", entry.node,
            QStringLiteral("%1 does not have the supply %2: opening drops it")
                .arg(device, entry.node));
    else if (entry.isOutside())
        add("supply-range", entry.node,
            QStringLiteral("%1 V is outside the %2 to %3 V of %4: opening replaces it by %5")
                .arg(value, entry.supply.min, entry.supply.max, device,
                     VLT::numberText(entry.defaultValue())),
            VLT::numberText(entry.defaultValue()));
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
    const DEV::SupplyData data = catalogue->supplies(chip.device, chip.package);
    const SupplyEntry vcc = {VLT::NODE_VCC, data.vcc, m_conditions.vcc};
    const SupplyEntry vccx = {VLT::NODE_VCCX, data.vccx, m_conditions.vccx};
    const SupplyEntry vccLdo = {VLT::NODE_VCC_LDO, data.vccldo, m_conditions.vccLdo};
    if (!vcc.exists()) {
        m_findings->add("device-unknown", 0, QString(),
                        QStringLiteral("%1 has no supply data: the editor does not open a "
                                       "configuration on it")
                            .arg(device));
        return;
    }
    for (const SupplyEntry *entry : {&vcc, &vccx, &vccLdo})
        checkSupply(*entry, device);
    // Only the first tie that applies is kept.
    if (data.vccVccx)
        checkTie(vcc, vccx, device);
    else if (data.vccxVccldo)
        checkTie(vccx, vccLdo, device);
    else if (data.vccVccldo)
        checkTie(vcc, vccLdo, device);
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
