#include "designplan_p.h"

#include "jsonwalk_p.h"
#include "readcontrol.h"

#include <QStringList>

#include <algorithm>

namespace NlsData {

namespace {

[[noreturn]] void refuse(const QString &cause)
{
    throw ReadError{cause};
}

/// Renumbers the bits of a module if its own numbers are so far apart that a table by number would
/// be mostly empty. Bits of pins without a port or net get numbers out of range.
void closeGaps(RawModule *module)
{
    RawBit highest = 0;
    for (const RawBit bit : module->bits) {
        if (bit != CONSTANT_BIT)
            highest = std::max(highest, bit);
    }
    if (highest <= 2 * quint64(module->bits.size()) + 16)
        return;
    std::vector<RawBit> known = module->bits;
    std::sort(known.begin(), known.end());
    known.erase(std::unique(known.begin(), known.end()), known.end());
    if (known.back() == CONSTANT_BIT)
        known.pop_back();
    for (std::vector<RawBit> *bits : {&module->bits, &module->pinBits}) {
        for (RawBit &bit : *bits) {
            if (bit == CONSTANT_BIT)
                continue;
            const auto it = std::lower_bound(known.begin(), known.end(), bit);
            const bool found = it != known.end() && *it == bit;
            bit = RawBit((found ? it : known.end()) - known.begin());
        }
    }
}

/// Whether `a` is a better name for a bit than `b`, neither being of a port: user-given before
/// generated, then the higher level in what synthesis has flattened.
bool isBetterName(const RawVector &a, const RawVector &b)
{
    if (a.generatedName != b.generatedName)
        return !a.generatedName;
    return std::count(a.name.begin(), a.name.end(), '.') <
           std::count(b.name.begin(), b.name.end(), '.');
}

void nameBits(ModulePlan *plan)
{
    const RawModule &raw = *plan->raw;
    const quint32 portCount = quint32(raw.ports.size());
    const quint32 vectorCount = portCount + quint32(raw.nets.size());
    for (quint32 index = 0; index < vectorCount; ++index) {
        const RawVector &vector = plan->vector(index);
        for (quint32 place = 0; place < vector.count; ++place) {
            const RawBit bit = raw.bits[vector.first + place];
            if (bit == CONSTANT_BIT)
                continue;
            if (bit >= plan->bits.size())
                plan->bits.resize(size_t(bit) + 1);
            ModulePlan::BitName &name = plan->bits[bit];
            if (!name.exists() ||
                (name.vector >= portCount && isBetterName(vector, plan->vector(name.vector))))
                name = {index, place};
        }
    }
}

} // namespace

DesignPlan::DesignPlan(RawNetlist *raw, const ElaborationLimits &limits)
    : m_raw(*raw)
    , m_limits(limits)
    , m_modules(raw->modules.size())
{
    indexModules();
    m_top = findTop();
    plan(m_top, 1);
}

void DesignPlan::indexModules()
{
    for (quint32 i = 0; i < m_raw.modules.size(); ++i) {
        m_modules[i].raw = &m_raw.modules[i];
        if (!m_byName.emplace(m_raw.modules[i].name, i).second)
            refuse(
                QStringLiteral("module '%1' is defined twice").arg(quoted(m_raw.modules[i].name)));
    }
    for (const CellKind &kind : m_raw.kinds) {
        const auto it = m_byName.find(kind.type);
        const bool hasContents = it != m_byName.end() && !m_raw.modules[it->second].blackbox;
        m_contents.push_back(hasContents ? it->second : LEAF);
    }
}

quint32 DesignPlan::findTop() const
{
    std::vector<quint32> marked;
    std::vector<bool> used(m_raw.modules.size());
    for (quint32 i = 0; i < m_raw.modules.size(); ++i) {
        const RawModule &module = m_raw.modules[i];
        if (module.blackbox)
            continue;
        if (module.top)
            marked.push_back(i);
        for (const RawCell &cell : module.cells) {
            const quint32 inside = contents(cell.kind);
            if (inside != LEAF && inside != i)
                used[inside] = true;
        }
    }
    std::vector<quint32> candidates = marked;
    bool any = false;
    for (quint32 i = 0; marked.empty() && i < m_raw.modules.size(); ++i) {
        any = any || !m_raw.modules[i].blackbox;
        if (!m_raw.modules[i].blackbox && !used[i])
            candidates.push_back(i);
    }
    if (candidates.size() == 1)
        return candidates.front();
    if (candidates.empty())
        refuse(any ? QStringLiteral("no top module: the modules contain each other")
                   : QStringLiteral("no module has any contents"));
    QStringList names;
    for (size_t i = 0; i < std::min<size_t>(candidates.size(), 3); ++i)
        names += QLatin1Char('\'') + quoted(m_raw.modules[candidates[i]].name) + QLatin1Char('\'');
    const QString list = names.join(QLatin1String(", ")) +
                         (candidates.size() > 3 ? QStringLiteral(", \u2026") : QString());
    refuse(marked.empty()
               ? QStringLiteral("no module is marked as top, and several are candidates: ") + list
               : QStringLiteral("more than one module is marked as top: ") + list);
}

void DesignPlan::plan(quint32 index, int level)
{
    ModulePlan &plan = m_modules[index];
    const QString name = quoted(plan.raw->name);
    if (plan.underWay)
        refuse(QStringLiteral("module '%1' contains itself").arg(name));
    if (level > m_limits.depth)
        refuse(QStringLiteral("more than %1 levels of hierarchy").arg(m_limits.depth));
    if (plan.planned)
        return;

    plan.underWay = true;
    closeGaps(plan.raw);
    nameBits(&plan);
    plan.instances = plan.raw->cells.size();
    plan.nets = plan.bits.size();
    for (size_t i = 0; i < plan.raw->cells.size(); ++i) {
        const quint32 inside = contents(plan.raw->cells[i].kind);
        if (inside != LEAF) {
            this->plan(inside, level + 1);
            const ModulePlan &child = m_modules[inside];
            plan.instances += child.instances;
            plan.nets += child.nets;
            plan.depth = std::max(plan.depth, child.depth + 1);
        }
        if (plan.instances + plan.nets > m_limits.objects)
            refuse(QStringLiteral("the design has more than %1 objects").arg(m_limits.objects));
        checkCell(plan, i);
    }
    if (plan.depth > m_limits.depth)
        refuse(QStringLiteral("more than %1 levels of hierarchy").arg(m_limits.depth));
    plan.underWay = false;
    plan.planned = true;
}

quint32 DesignPlan::findPort(quint32 module, quint32 portName)
{
    ModulePlan &plan = m_modules[module];
    if (plan.portIndex.empty()) {
        for (quint32 i = 0; i < plan.raw->ports.size(); ++i)
            plan.portIndex.emplace(plan.raw->ports[i].portName, i);
    }
    const auto it = plan.portIndex.find(portName);
    return it == plan.portIndex.end() ? LEAF : it->second;
}

void DesignPlan::checkCell(const ModulePlan &plan, size_t cellIndex)
{
    RawModule &raw = *plan.raw;
    const RawCell &cell = raw.cells[cellIndex];
    const quint32 inside = contents(cell.kind);
    const auto complain = [&](const RawPin &pin, const QString &what) {
        const QString port = quoted(m_raw.portNames[pin.portName]);
        refuse(QStringLiteral("port '%1' of cell '%2' in module '%3' %4")
                   .arg(port, quoted(cell.name), quoted(raw.name), what));
    };
    for (quint32 i = cell.firstPin; i < raw.pinEnd(cellIndex); ++i) {
        RawPin &pin = raw.pins[i];
        const quint32 end = raw.bitEnd(i);
        for (quint32 bit = pin.firstBit; bit < end; ++bit) {
            const RawBit number = raw.pinBits[bit];
            if (number != CONSTANT_BIT &&
                (number >= plan.bits.size() || !plan.bits[number].exists()))
                complain(pin, QStringLiteral("is connected to a bit that does not exist"));
        }
        if (inside != LEAF) {
            const quint32 port = findPort(inside, pin.portName);
            if (port == LEAF)
                complain(pin, QStringLiteral("does not exist in the cell's module"));
            if (end - pin.firstBit > m_modules[inside].raw->ports[port].count)
                complain(pin, QStringLiteral("is connected to more bits than it has"));
        } else if (Direction(pin.direction) == Direction::Unknown) {
            pin.direction = quint32(directionOf(pin, m_raw.kinds[cell.kind]));
        }
    }
}

/// The direction of a pin for which the file has none.
Direction DesignPlan::directionOf(const RawPin &pin, const CellKind &kind)
{
    const auto module = m_byName.find(kind.type);
    if (module != m_byName.end()) {
        const quint32 port = findPort(module->second, pin.portName);
        if (port != LEAF)
            return m_raw.modules[module->second].ports[port].direction;
    }
    const bool output = kind.library && kind.library->isOutput(m_raw.portNames[pin.portName]);
    return output ? Direction::Output : Direction::Unknown;
}

} // namespace NlsData
