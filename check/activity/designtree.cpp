#include "check/activity/designtree.h"

#include "check/activity/reference.h"

#include "host/nlsdata/netnames.h"
#include "nlsdata/netlist.h"

#include <algorithm>
#include <functional>

namespace Check {

namespace {

constexpr int MEMORY = 5;
constexpr int FLIP_FLOP = 50;
constexpr int PAD = 8;
constexpr int CONSTANT = 11;
constexpr int INPUT_PAD = 8001; // primitives
constexpr int BIDIRECTIONAL_PAD = 8004;

NetKind kindOfDriver(int category)
{
    switch (category) {
    case MEMORY:
        return NetKind::Memory;
    case FLIP_FLOP:
        return NetKind::FlipFlop;
    case PAD:
        return NetKind::Pad;
    default:
        return NetKind::Logic;
    }
}

size_t mixed(quint32 node, std::string_view text)
{
    const size_t hash = std::hash<std::string_view>()(text) ^ (node * size_t(0x9e3779b97f4a7c15));
    return hash ^ (hash >> 32);
}

} // namespace

QString netKindName(NetKind kind)
{
    static const char *const names[NET_KINDS] = {"input", "flip-flop", "memory",
                                                 "pad",   "logic",     "undriven"};
    return QLatin1String(names[int(kind)]);
}

DesignTree::DesignTree(const NlsData::Netlist &netlist, const NlsData::NetNames &names)
    : m_names(names)
    , m_nodes{{{}, NONE, NONE, 0, NONE}}
    , m_table(1 << 10, NONE)
    , m_scopes{{nullptr, ROOT, NONE, 0, 0}}
{
    addVectors(addScopes());
    orderScopes();
    indexCalled();
    addNets(netlist);
}

std::string_view DesignTree::segment(quint32 node) const
{
    return m_nodes[node].text;
}

size_t DesignTree::placeOf(quint32 node, std::string_view text) const
{
    const size_t mask = m_table.size() - 1;
    size_t place = mixed(node, text) & mask;
    while (m_table[place] != NONE) {
        const Node &found = m_nodes[m_table[place]];
        if (found.parent == node && found.text == text)
            break;
        place = (place + 1) & mask;
    }
    return place;
}

quint32 DesignTree::child(quint32 node, std::string_view text) const
{
    return m_table[placeOf(node, text)];
}

void DesignTree::grow()
{
    m_table.assign(2 * m_table.size(), NONE);
    for (quint32 node = 1; node < m_nodes.size(); ++node)
        m_table[placeOf(m_nodes[node].parent, m_nodes[node].text)] = node;
}

void DesignTree::indexCalled()
{
    m_called.assign(m_table.size(), NONE);
    const size_t mask = m_called.size() - 1;
    for (quint32 node = 1; node < m_nodes.size(); ++node) {
        size_t place = mixed(0, m_nodes[node].text) & mask;
        while (m_called[place] != NONE && m_nodes[m_called[place]].text != m_nodes[node].text)
            place = (place + 1) & mask;
        m_nodes[node].next = m_called[place];
        m_called[place] = node;
    }
}

quint32 DesignTree::addPath(quint32 node, std::string_view path)
{
    forEachSegment(path, [&](std::string_view text) {
        const size_t place = placeOf(node, text);
        if (m_table[place] != NONE) {
            node = m_table[place];
            return;
        }
        const auto added = quint32(m_nodes.size());
        m_table[place] = added;
        m_nodes.push_back({text, node, NONE, NONE, NONE});
        node = added;
        if (2 * m_nodes.size() > m_table.size())
            grow();
    });
    return node;
}

quint32 DesignTree::find(quint32 node, std::string_view path) const
{
    forEachSegment(path, [&](std::string_view text) {
        if (node != NONE)
            node = child(node, text);
    });
    return node;
}

quint32 DesignTree::firstCalled(std::string_view text) const
{
    const size_t mask = m_called.size() - 1;
    size_t place = mixed(0, text) & mask;
    while (m_called[place] != NONE && m_nodes[m_called[place]].text != text)
        place = (place + 1) & mask;
    return m_called[place];
}

DesignTree::Levels DesignTree::addScopes()
{
    Levels levels{{nullptr, 0}};
    m_names.forEachModule([&](const NlsData::Instance *instance, const NlsData::Instance *parent,
                              std::string_view name) {
        const quint32 above = levels.value(parent, 0);
        const quint32 node = addPath(m_scopes[above].node, name);
        quint32 &scope = m_nodes[node].scope;
        if (scope == NONE) { // else two are spelled alike
            scope = quint32(m_scopes.size());
            m_scopes.push_back({instance, node, above, 0, 0});
        }
        levels.insert(instance, scope);
    });
    // What flattening has left is all at one level: nodes tell what is inside what.
    for (size_t i = 1; i < m_scopes.size(); ++i) {
        quint32 node = m_nodes[m_scopes[i].node].parent;
        while (m_nodes[node].scope == NONE)
            node = m_nodes[node].parent;
        m_scopes[i].parent = m_nodes[node].scope;
    }
    return levels;
}

void DesignTree::addVectors(const Levels &levels)
{
    m_names.forEachVector([&](const NlsData::NetNames::Vector &row) {
        const quint32 level = levels.value(row.scope, 0);
        Vector vector{row.name,
                      NONE,
                      NONE,
                      level,
                      NONE,
                      quint32(m_nets.size()),
                      quint32(row.nets.size()),
                      row.offset,
                      row.isVector,
                      row.isUpwards};
        std::string_view base = row.name;
        BitRange range;
        bool isSingle = false;
        if (!row.isVector && takeRange(&base, &range, &isSingle) && isSingle && !base.empty()) {
            vector.hasNumbers = true;
            vector.offset = range.left;
        } else {
            base = row.name;
        }
        vector.node = addPath(m_scopes[level].node, base);
        m_nets.insert(m_nets.end(), row.nets.begin(), row.nets.end());
        m_vectors.push_back(vector);
    });
}

void DesignTree::orderScopes()
{
    // Before what is inside: by the parents' new places.
    std::vector<std::vector<quint32>> children(m_scopes.size());
    for (quint32 i = 1; i < m_scopes.size(); ++i)
        children[m_scopes[i].parent].push_back(i);
    std::vector<Scope> ordered;
    ordered.reserve(m_scopes.size());
    std::vector<quint32> places(m_scopes.size());
    std::vector<std::pair<quint32, size_t>> open{{0, 0}};
    ordered.push_back(m_scopes[0]);
    while (!open.empty()) {
        auto &[scope, next] = open.back();
        if (next == children[scope].size()) {
            ordered[places[scope]].end = quint32(ordered.size());
            open.pop_back();
            continue;
        }
        const quint32 inner = children[scope][next++];
        places[inner] = quint32(ordered.size());
        ordered.push_back(m_scopes[inner]);
        ordered.back().parent = places[scope];
        open.emplace_back(inner, 0);
    }
    m_scopes = std::move(ordered);
    for (quint32 i = 0; i < m_scopes.size(); ++i)
        m_nodes[m_scopes[i].node].scope = i;
    placeVectors(places);
}

void DesignTree::placeVectors(const std::vector<quint32> &places)
{
    for (Vector &vector : m_vectors) {
        quint32 node = vector.node;
        while (m_nodes[node].scope == NONE || (node == vector.node && node != ROOT))
            node = m_nodes[node].parent;
        vector.scope = m_nodes[node].scope;
        vector.level = places[vector.level];
    }
    const auto before = [](const Vector &a, const Vector &b) { return a.scope < b.scope; };
    if (!std::is_sorted(m_vectors.begin(), m_vectors.end(), before))
        std::stable_sort(m_vectors.begin(), m_vectors.end(), before);
    quint32 scope = 0;
    for (quint32 i = 0; i < m_vectors.size(); ++i) {
        for (; scope <= m_vectors[i].scope; ++scope)
            m_scopes[scope].firstVector = i;
        Node &node = m_nodes[m_vectors[i].node];
        m_vectors[i].next = node.vector;
        node.vector = i;
    }
    for (; scope < m_scopes.size(); ++scope)
        m_scopes[scope].firstVector = quint32(m_vectors.size());
}

quint32 DesignTree::vectorEnd(quint32 scope) const
{
    const quint32 end = m_scopes[scope].end;
    return end < m_scopes.size() ? m_scopes[end].firstVector : quint32(m_vectors.size());
}

void DesignTree::addNets(const NlsData::Netlist &netlist)
{
    const quint32 count = m_names.netCount();
    m_kinds.assign(count, NetKind::Undriven);
    m_constant.assign(count, false);
    m_fromPad.assign(count, false);
    m_scopeOfNet.assign(count, 0);
    for (quint32 net = 0; net < count; ++net) {
        if (const NlsData::Instance *driver = m_names.net(net)->driver()) {
            m_kinds[net] = kindOfDriver(driver->category());
            m_constant[net] = driver->category() == CONSTANT;
            m_fromPad[net] =
                driver->primitive() == INPUT_PAD || driver->primitive() == BIDIRECTIONAL_PAD;
        }
    }
    // What a bidirectional pad drives at its port is an input, too.
    for (const NlsData::Port *port : netlist.ports()) {
        const bool isInput = port->direction() == 0 || port->direction() == 2;
        if (port->net() && isInput)
            m_kinds[m_names.number(port->net())] = NetKind::Input;
    }
    // The first name is at the highest level.
    std::vector<bool> isPlaced(count, false);
    for (const Vector &vector : m_vectors) {
        for (quint32 place = 0; place < vector.count; ++place) {
            const quint32 number = net(vector, place);
            if (number >= count || isPlaced[number])
                continue;
            isPlaced[number] = true;
            m_scopeOfNet[number] = vector.scope;
        }
    }
}

QString DesignTree::path(quint32 scope) const
{
    const NlsData::Instance *instance = m_scopes[scope].instance;
    return instance ? instance->path() : QString();
}

quint32 DesignTree::findScope(const QString &path) const
{
    if (path.isEmpty())
        return 0;
    const QByteArray utf8 = path.toUtf8();
    const quint32 node = find(ROOT, {utf8.constData(), size_t(utf8.size())});
    return node == NONE ? NONE : m_nodes[node].scope;
}

QString DesignTree::netPath(quint32 net) const
{
    return m_names.net(net)->path();
}

} // namespace Check
