#include "elaborator_p.h"

#include "designplan_p.h"
#include "nametable_p.h"
#include "netlistdata_p.h"
#include "readcontrol.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace NlsData {

namespace {

constexpr quint32 NONE = NetlistData::NONE;
constexpr int FIRST_PERMILLE = 850;
constexpr size_t REPORT_INTERVAL = 4096;

/// A possible driver of its net: a bidirectional pin.
constexpr quint32 WEAK_DRIVER = 0x80000000;

QByteArray bytes(std::string_view text)
{
    return QByteArray(text.data(), int(text.size()));
}

class Elaborator
{
public:
    Elaborator(DesignPlan *plan, const RawNetlist &raw, ReadControl *control, bool allNames)
        : m_plan(*plan)
        , m_raw(raw)
        , m_control(control)
        , m_data(new NetlistData)
        , m_firstName(raw.modules.size(), NONE)
    {
        if (allNames)
            m_data->allNames = std::make_unique<NameTable>(raw.modules.size());
    }

    std::unique_ptr<NetlistData> run();

private:
    void addKinds();
    void addName(std::string_view name, quint8 rank);
    void addNames(quint32 module);
    void addAllNames(quint32 module);
    void addPins(const RawModule &raw, size_t cell);
    void layOut(quint32 module, quint32 scope, size_t frame);
    void addNets(quint32 module, quint32 scope, size_t frame);
    void connectLeaf(const RawModule &raw, size_t cell, quint32 instance, size_t frame);
    void connectPorts(const RawModule &raw, size_t cell, quint32 inside, size_t frame,
                      size_t insideFrame);
    void addDriver(quint32 net, quint32 driver);
    void addPorts();
    quint32 findRoot(quint32 net);
    void join(quint32 a, quint32 b);
    bool isBetterName(quint32 a, quint32 b) const;
    void mergeNets();
    void settleDrivers();

    DesignPlan &m_plan;
    const RawNetlist &m_raw;
    ReadControl *const m_control;
    std::unique_ptr<NetlistData> m_data;
    std::vector<quint32> m_firstName; ///< by module: of its ports, then its nets, then its cells
    std::vector<quint8> m_nameRank;   ///< the lower, the better to call a net
    std::vector<quint32> m_frames;    ///< net of each bit of the modules being laid out
    std::vector<quint32> m_joined;    ///< towards the root of nets that are one; empty: none are
};

std::unique_ptr<NetlistData> Elaborator::run()
{
    const ModulePlan &top = m_plan.module(m_plan.top());
    m_data->design = bytes(top.raw->name);
    m_data->nets.reserve(top.nets);
    m_data->instances.reserve(top.instances);
    addKinds();
    m_frames.assign(top.bits.size(), NONE);
    layOut(m_plan.top(), NONE, 0);
    addPorts();
    if (m_data->allNames)
        m_data->allNames->link(*m_data, [this](quint32 net) { return findRoot(net); });
    if (!m_joined.empty())
        mergeNets();
    settleDrivers();
    return std::move(m_data);
}

void Elaborator::addKinds()
{
    for (quint32 i = 0; i < m_raw.kinds.size(); ++i) {
        const CellKind &raw = m_raw.kinds[i];
        NetlistData::Kind kind;
        kind.type = bytes(raw.type);
        kind.isModule = m_plan.contents(i) != DesignPlan::LEAF;
        if (raw.type == SCOPE_INFO) {
            kind.isModule = true;
        } else if (!kind.isModule) {
            kind.isKnown = raw.library != nullptr;
            kind.category = raw.codes.category;
            kind.primitive = raw.codes.primitive;
        }
        m_data->kinds.push_back(kind);
    }
}

void Elaborator::addName(std::string_view name, quint8 rank)
{
    m_data->names.push_back({quint32(m_data->text.size()), quint32(name.size())});
    m_data->text.insert(m_data->text.end(), name.begin(), name.end());
    m_nameRank.push_back(rank);
}

void Elaborator::addNames(quint32 module)
{
    const RawModule &raw = *m_plan.module(module).raw;
    m_firstName[module] = quint32(m_data->names.size());
    for (const RawVector &port : raw.ports)
        addName(port.name, 0);
    for (const RawVector &net : raw.nets)
        addName(net.name, net.generatedName ? 2 : 1);
    for (const RawCell &cell : raw.cells)
        addName(cell.name, 0);
    if (m_data->allNames)
        addAllNames(module);
}

void Elaborator::addAllNames(quint32 module)
{
    const RawModule &raw = *m_plan.module(module).raw;
    m_data->allNames->addModule(module, m_plan.module(module), m_firstName[module]);
    const quint32 firstCell = m_firstName[module] + quint32(raw.ports.size() + raw.nets.size());
    for (const auto &[cell, name] : raw.scopeModules)
        m_data->scopeModules.emplace_back(firstCell + cell, bytes(name));

    // Cells from the same source line share its position.
    std::unordered_map<std::string_view, quint32> known{{std::string_view(), NONE}};
    std::vector<quint32> sources;
    for (const std::string_view source : raw.sources) {
        const auto [it, added] = known.try_emplace(source, quint32(m_data->names.size()));
        if (added)
            addName(source, 0);
        sources.push_back(it->second);
    }
    m_data->allNames->setSources(module, std::move(sources));
}

/// The pins of a kind are those of its first cell.
void Elaborator::addPins(const RawModule &raw, size_t cell)
{
    std::vector<QByteArray> &pins = m_data->kinds[raw.cells[cell].kind].pins;
    if (!pins.empty())
        return;
    for (quint32 i = raw.cells[cell].firstPin; i < raw.pinEnd(cell); ++i)
        pins.push_back(bytes(m_raw.portNames[raw.pins[i].portName]));
}

/// Adds one copy of a module in `scope`. The nets of its bits are in m_frames from `frame` on:
/// those connected from outside are set already, the others are added here.
void Elaborator::layOut(quint32 module, quint32 scope, size_t frame)
{
    const ModulePlan &plan = m_plan.module(module);
    const RawModule &raw = *plan.raw;
    if (m_firstName[module] == NONE)
        addNames(module);
    addNets(module, scope, frame);
    if (m_data->allNames)
        m_data->allNames->addCopy(module, scope, m_frames.data() + frame);

    const size_t frameEnd = frame + plan.bits.size();
    const quint32 firstName = m_firstName[module] + quint32(raw.ports.size() + raw.nets.size());
    for (size_t i = 0; i < raw.cells.size(); ++i) {
        const auto row = quint32(m_data->instances.size());
        if (m_control && row % REPORT_INTERVAL == 0)
            m_control->report(FIRST_PERMILLE + int(row * (1000.0 - FIRST_PERMILLE) /
                                                   double(m_data->instances.capacity() + 1)));
        const quint32 kind = raw.cells[i].kind;
        m_data->instances.push_back({scope, firstName + quint32(i), kind});
        const quint32 inside = m_plan.contents(kind);
        if (m_data->allNames)
            addPins(raw, i);
        if (inside == DesignPlan::LEAF) {
            connectLeaf(raw, i, row, frame);
            continue;
        }
        m_frames.resize(frameEnd + m_plan.module(inside).bits.size(), NONE);
        connectPorts(raw, i, inside, frame, frameEnd);
        layOut(inside, row, frameEnd);
        m_frames.resize(frameEnd);
    }
}

void Elaborator::addNets(quint32 module, quint32 scope, size_t frame)
{
    const ModulePlan &plan = m_plan.module(module);
    for (size_t bit = 0; bit < plan.bits.size(); ++bit) {
        const ModulePlan::BitName &name = plan.bits[bit];
        quint32 &net = m_frames[frame + bit];
        if (!name.exists() || net != NONE)
            continue;
        net = quint32(m_data->nets.size());
        m_data->nets.push_back({scope, m_firstName[module] + name.vector,
                                plan.vector(name.vector).bitNumber(name.place), NONE});
    }
}

void Elaborator::connectLeaf(const RawModule &raw, size_t cell, quint32 instance, size_t frame)
{
    const quint32 end = raw.pinEnd(cell);
    for (quint32 i = raw.cells[cell].firstPin; i < end; ++i) {
        const auto direction = Direction(raw.pins[i].direction);
        if (direction != Direction::Output && direction != Direction::Bidirectional)
            continue;
        const quint32 driver = direction == Direction::Output ? instance : instance | WEAK_DRIVER;
        const quint32 bitEnd = raw.bitEnd(i);
        for (quint32 bit = raw.pins[i].firstBit; bit < bitEnd; ++bit) {
            if (raw.pinBits[bit] != CONSTANT_BIT)
                addDriver(m_frames[frame + raw.pinBits[bit]], driver);
        }
    }
}

void Elaborator::connectPorts(const RawModule &raw, size_t cell, quint32 inside, size_t frame,
                              size_t insideFrame)
{
    const RawModule &child = *m_plan.module(inside).raw;
    const quint32 end = raw.pinEnd(cell);
    for (quint32 i = raw.cells[cell].firstPin; i < end; ++i) {
        const RawVector &port = child.ports[m_plan.findPort(inside, raw.pins[i].portName)];
        const quint32 first = raw.pins[i].firstBit;
        const quint32 count = raw.bitEnd(i) - first;
        for (quint32 place = 0; place < count; ++place) {
            const RawBit outer = raw.pinBits[first + place];
            const RawBit inner = child.bits[port.first + place];
            if (outer == CONSTANT_BIT || inner == CONSTANT_BIT)
                continue;
            const quint32 outerNet = m_frames[frame + outer];
            quint32 &innerNet = m_frames[insideFrame + inner];
            if (innerNet == NONE)
                innerNet = outerNet;
            else if (innerNet != outerNet)
                join(innerNet, outerNet); // the module passes one port through to another
        }
    }
}

void Elaborator::addDriver(quint32 net, quint32 driver)
{
    quint32 &present = m_data->nets[net].driver;
    if (present == NONE || (present & WEAK_DRIVER && !(driver & WEAK_DRIVER)))
        present = driver;
}

void Elaborator::addPorts()
{
    const ModulePlan &top = m_plan.module(m_plan.top());
    for (quint32 i = 0; i < top.raw->ports.size(); ++i) {
        const RawVector &port = top.raw->ports[i];
        for (quint32 place = 0; place < port.count; ++place) {
            const RawBit bit = top.raw->bits[port.first + place];
            m_data->ports.push_back({m_firstName[m_plan.top()] + i, port.bitNumber(place),
                                     bit == CONSTANT_BIT ? NONE : m_frames[bit],
                                     quint8(port.direction)});
        }
    }
}

quint32 Elaborator::findRoot(quint32 net)
{
    while (net < m_joined.size() && m_joined[net] != net) {
        m_joined[net] = m_joined[m_joined[net]];
        net = m_joined[net];
    }
    return net;
}

void Elaborator::join(quint32 a, quint32 b)
{
    const size_t known = m_joined.size();
    if (known < m_data->nets.size()) {
        m_joined.resize(m_data->nets.size());
        std::iota(m_joined.begin() + known, m_joined.end(), quint32(known));
    }
    a = findRoot(a);
    b = findRoot(b);
    m_joined[std::max(a, b)] = std::min(a, b);
}

/// Whether net `a` has the better name for two joined nets: by level, then by rank.
bool Elaborator::isBetterName(quint32 a, quint32 b) const
{
    const auto level = [this](quint32 net) {
        int level = 0;
        for (quint32 up = m_data->nets[net].scope; up != NONE; up = m_data->instances[up].scope)
            ++level;
        return level;
    };
    const auto key = [&](quint32 net) {
        return std::pair(level(net), m_nameRank[m_data->nets[net].name]);
    };
    return key(a) < key(b);
}

/// Keeps one row per group of joined nets, with the best name.
void Elaborator::mergeNets()
{
    std::vector<NetlistData::NetRow> &nets = m_data->nets;
    std::vector<quint32> best(nets.size(), NONE);
    for (quint32 net = 0; net < nets.size(); ++net) {
        const quint32 root = findRoot(net);
        if (best[root] == NONE || isBetterName(net, best[root]))
            best[root] = net;
        if (root != net && nets[net].driver != NONE)
            addDriver(root, nets[net].driver);
    }
    std::vector<quint32> place(nets.size());
    std::vector<NetlistData::NetRow> kept;
    for (quint32 net = 0; net < nets.size(); ++net) {
        const quint32 root = findRoot(net);
        if (best[root] != net)
            continue;
        place[root] = quint32(kept.size());
        kept.push_back(nets[net]);
        kept.back().driver = nets[root].driver;
    }
    for (NetlistData::PortRow &port : m_data->ports) {
        if (port.net != NONE)
            port.net = place[findRoot(port.net)];
    }
    nets = std::move(kept);
}

/// A bidirectional pin drives its net, unless an input of the design does.
void Elaborator::settleDrivers()
{
    for (const NetlistData::PortRow &port : m_data->ports) {
        if (port.net == NONE || Direction(port.direction) != Direction::Input)
            continue;
        quint32 &driver = m_data->nets[port.net].driver;
        if (driver & WEAK_DRIVER)
            driver = NONE;
    }
    for (NetlistData::NetRow &net : m_data->nets) {
        if (net.driver != NONE)
            net.driver &= ~WEAK_DRIVER;
    }
}

} // namespace

std::unique_ptr<NetlistData> elaborate(RawNetlist *raw, const ElaborationLimits &limits,
                                       ReadControl *control, bool allNames)
{
    DesignPlan plan(raw, limits);
    return Elaborator(&plan, *raw, control, allNames).run();
}

} // namespace NlsData
