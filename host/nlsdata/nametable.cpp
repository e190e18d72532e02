#include "nametable_p.h"

#include "designplan_p.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <unordered_set>

namespace NlsData {

namespace {

/// A key that sorts `NONE`, the scope of the top module, first.
quint32 order(quint32 scope)
{
    return scope + 1;
}

} // namespace

void NameTable::addModule(quint32 index, const ModulePlan &plan, quint32 firstName)
{
    const RawModule &raw = *plan.raw;
    Module &module = m_modules[index];
    const auto vectorCount = quint32(raw.ports.size() + raw.nets.size());
    module.firstName = firstName;
    module.firstCell = firstName + vectorCount;
    module.first.assign(plan.bits.size() + 1, 0);
    // The file lists every port again as a net.
    std::unordered_set<std::string_view> ports;
    for (const RawVector &port : raw.ports)
        ports.insert(port.name);
    std::vector<bool> repeated(vectorCount);
    for (quint32 i = quint32(raw.ports.size()); i < vectorCount; ++i)
        repeated[i] = ports.count(plan.vector(i).name) > 0;
    module.vectors.reserve(vectorCount);
    for (quint32 i = 0; i < vectorCount; ++i) {
        const RawVector &vector = plan.vector(i);
        const auto begin = raw.bits.begin() + vector.first;
        module.vectors.push_back({firstName + i, quint32(module.bits.size()), vector.count,
                                  vector.offset, vector.isVector, vector.upto, vector.generatedName,
                                  repeated[i]});
        module.bits.insert(module.bits.end(), begin, begin + vector.count);
    }
    for (const quint32 bit : module.bits) {
        if (bit != CONSTANT_BIT)
            ++module.first[bit];
    }
    quint32 end = 0;
    for (quint32 &first : module.first)
        first = end += first;
    module.names.resize(end);
    for (quint32 i = vectorCount; i-- > 0;) {
        for (quint32 place = plan.vector(i).count; place-- > 0;) {
            const quint32 bit = module.bits[module.vectors[i].first + place];
            if (bit != CONSTANT_BIT)
                module.names[--module.first[bit]] = {repeated[i] ? NONE : i, place};
        }
    }

    const auto text = [&](quint32 vector) { return plan.vector(vector).name; };
    module.byName.resize(vectorCount);
    std::iota(module.byName.begin(), module.byName.end(), 0);
    const auto before = [&](quint32 a, quint32 b) { return text(a) < text(b); };
    // Usually both ports and nets are sorted.
    const auto nets = module.byName.begin() + std::ptrdiff_t(raw.ports.size());
    for (const auto &[from, to] :
         {std::pair(module.byName.begin(), nets), std::pair(nets, module.byName.end())}) {
        if (!std::is_sorted(from, to, before))
            std::stable_sort(from, to, before);
    }
    std::inplace_merge(module.byName.begin(), nets, module.byName.end(), before);
}

void NameTable::setSources(quint32 module, std::vector<quint32> sources)
{
    m_modules[module].sources = std::move(sources);
}

void NameTable::addCopy(quint32 module, quint32 scope, const quint32 *frame)
{
    m_copies.push_back({scope, module, quint32(m_next.size())});
    m_next.insert(m_next.end(), frame, frame + m_modules[module].first.size() - 1);
}

void NameTable::link(const NetlistData &data, const std::function<quint32(quint32)> &root)
{
    std::vector<quint32> latest(data.nets.size(), NONE);
    for (quint32 slot = 0; slot < m_next.size(); ++slot) {
        if (m_next[slot] == NONE) { // a number that no bit has
            m_next[slot] = slot;
            continue;
        }
        quint32 &before = latest[root(m_next[slot])];
        m_next[slot] = before == NONE ? slot : std::exchange(m_next[before], slot);
        before = slot;
    }
    m_next.shrink_to_fit();
    m_children.resize(m_copies.size() - 1);
    std::iota(m_children.begin(), m_children.end(), 1);
    std::sort(m_children.begin(), m_children.end(),
              [&](quint32 a, quint32 b) { return childKey(data, a) < childKey(data, b); });
}

/// The key of a copy other than the top: its scope and its name there.
std::pair<quint32, std::string_view> NameTable::childKey(const NetlistData &data,
                                                         quint32 copy) const
{
    const NetlistData::InstanceRow &row = data.instances[m_copies[copy].scope];
    return {order(row.scope), data.nameText(row.name)};
}

const NameTable::Copy &NameTable::copyAt(quint32 slot) const
{
    return *(
        std::upper_bound(m_copies.begin(), m_copies.end(), slot,
                         [](quint32 wanted, const Copy &copy) { return wanted < copy.firstSlot; }) -
        1);
}

const NameTable::Copy &NameTable::copyOf(quint32 scope) const
{
    return *std::lower_bound(
        m_copies.begin(), m_copies.end(), scope,
        [](const Copy &copy, quint32 wanted) { return order(copy.scope) < order(wanted); });
}

quint32 NameTable::bitOf(const NetlistData::NetRow &net, const Copy &copy) const
{
    const Module &module = m_modules[copy.module];
    const Vector &vector = module.vectors[net.name - module.firstName];
    quint32 place = 0;
    if (vector.isVector) {
        place = quint32(net.bit - vector.offset);
        if (vector.upto)
            place = vector.count - 1 - place;
    }
    return module.bits[vector.first + place];
}

/// The net of a slot: one slot in its ring belongs to the copy and bit that name the net. The rows
/// of nets are sorted by copy and, within one, by bit.
quint32 NameTable::netOf(const NetlistData &data, quint32 slot) const
{
    const quint32 begin = slot;
    do {
        const Copy &copy = copyAt(slot);
        const quint32 bit = slot - copy.firstSlot;
        const auto row = std::partition_point(
            data.nets.begin(), data.nets.end(), [&](const NetlistData::NetRow &net) {
                return order(net.scope) < order(copy.scope) ||
                       (net.scope == copy.scope && bitOf(net, copy) < bit);
            });
        if (row != data.nets.end() && row->scope == copy.scope && bitOf(*row, copy) == bit)
            return quint32(row - data.nets.begin());
        slot = m_next[slot];
    } while (slot != begin);
    return NONE;
}

void NameTable::collect(const NetlistData &data, quint32 net, std::vector<Name> *names) const
{
    const NetlistData::NetRow &row = data.nets[net];
    const Copy *copy = &copyOf(row.scope);
    const quint32 begin = copy->firstSlot + bitOf(row, *copy);
    quint32 slot = begin;
    do {
        const bool isSame =
            slot >= copy->firstSlot && (copy == &m_copies.back() || slot < copy[1].firstSlot);
        if (!isSame)
            copy = &copyAt(slot);
        const Module &module = m_modules[copy->module];
        const quint32 bit = slot - copy->firstSlot;
        for (quint32 i = module.first[bit]; i < module.first[bit + 1]; ++i) {
            if (module.names[i].vector == NONE)
                continue;
            const Vector &vector = module.vectors[module.names[i].vector];
            const quint32 place = module.names[i].place;
            const qint32 number =
                vector.isVector
                    ? vector.offset + qint32(vector.upto ? vector.count - 1 - place : place)
                    : NetlistData::SCALAR;
            names->push_back({copy->scope, vector.name, number, vector.generated});
        }
        slot = m_next[slot];
    } while (slot != begin);
}

quint32 NameTable::findVector(const NetlistData &data, const Module &module,
                              std::string_view name) const
{
    const auto text = [&](quint32 vector) { return data.nameText(module.firstName + vector); };
    const auto found =
        std::lower_bound(module.byName.begin(), module.byName.end(), name,
                         [&](quint32 vector, std::string_view n) { return text(vector) < n; });
    return found != module.byName.end() && text(*found) == name ? *found : NONE;
}

/// The net with that name in one copy of a module.
quint32 NameTable::findIn(const NetlistData &data, const Copy &copy, std::string_view name) const
{
    const Module &module = m_modules[copy.module];
    const auto netAt = [&](const Vector &vector, quint32 place) {
        const quint32 bit = module.bits[vector.first + place];
        return bit == CONSTANT_BIT ? CONSTANT : netOf(data, copy.firstSlot + bit);
    };
    quint32 found = findVector(data, module, name);
    if (found != NONE && !module.vectors[found].isVector && module.vectors[found].count == 1)
        return netAt(module.vectors[found], 0);

    const size_t bracket = name.rfind('[');
    if (bracket == std::string_view::npos || name.back() != ']')
        return NONE;
    qint32 number = 0;
    const char *end = name.data() + name.size() - 1;
    const auto [stop, error] = std::from_chars(name.data() + bracket + 1, end, number);
    found = findVector(data, module, name.substr(0, bracket));
    if (error != std::errc() || stop != end || found == NONE)
        return NONE;
    const Vector &vector = module.vectors[found];
    const qint64 place = qint64(number) - vector.offset;
    if (!vector.isVector || place < 0 || place >= vector.count)
        return NONE;
    return netAt(vector, vector.upto ? vector.count - 1 - quint32(place) : quint32(place));
}

quint32 NameTable::find(const NetlistData &data, std::string_view path) const
{
    return findBelow(data, m_copies.front(), path);
}

/// Names may contain "/", so every way to split the path is tried.
quint32 NameTable::findBelow(const NetlistData &data, const Copy &copy, std::string_view path) const
{
    quint32 found = findIn(data, copy, path);
    for (size_t slash = path.find('/'); found == NONE && slash != std::string_view::npos;
         slash = path.find('/', slash + 1)) {
        const auto key = std::pair(order(copy.scope), path.substr(0, slash));
        const auto child = std::lower_bound(m_children.begin(), m_children.end(), key,
                                            [&](quint32 candidate, const auto &wanted) {
                                                return childKey(data, candidate) < wanted;
                                            });
        if (child != m_children.end() && childKey(data, *child) == key)
            found = findBelow(data, m_copies[*child], path.substr(slash + 1));
    }
    return found;
}

void NameTable::forEachVector(const NetlistData &data,
                              const std::function<void(const VectorRow &)> &use) const
{
    std::vector<quint32> netOfSlot(m_next.size(), NONE);
    for (quint32 net = 0; net < data.nets.size(); ++net) {
        const Copy &copy = copyOf(data.nets[net].scope);
        const quint32 begin = copy.firstSlot + bitOf(data.nets[net], copy);
        quint32 slot = begin;
        do {
            netOfSlot[slot] = net;
            slot = m_next[slot];
        } while (slot != begin);
    }
    std::vector<quint32> nets;
    for (const Copy &copy : m_copies) {
        const Module &module = m_modules[copy.module];
        for (const Vector &vector : module.vectors) {
            if (vector.repeated)
                continue;
            nets.clear();
            for (quint32 place = 0; place < vector.count; ++place) {
                const quint32 bit = module.bits[vector.first + place];
                nets.push_back(bit == CONSTANT_BIT ? CONSTANT : netOfSlot[copy.firstSlot + bit]);
            }
            use({copy.scope, vector.name, vector.offset, vector.isVector, vector.upto, nets});
        }
    }
}

quint32 NameTable::source(const NetlistData &data, quint32 instance) const
{
    const NetlistData::InstanceRow &row = data.instances[instance];
    const Module &module = m_modules[copyOf(row.scope).module];
    return module.sources.empty() ? NONE : module.sources[row.name - module.firstCell];
}

} // namespace NlsData
