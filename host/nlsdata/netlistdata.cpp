#include "netlistdata_p.h"

#include "nametable_p.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <tuple>

namespace NlsData {

namespace {

bool isBefore(const NetlistData::NetRow &a, const NetlistData::NetRow &b)
{
    return std::tie(a.scope, a.name, a.bit) < std::tie(b.scope, b.name, b.bit);
}

bool isBefore(const NetlistData::InstanceRow &a, const NetlistData::InstanceRow &b)
{
    return std::tie(a.scope, a.name) < std::tie(b.scope, b.name);
}

/// The objects of `rows` by path. If two have the same path, which takes an escaped name, the map
/// has the first.
template<typename Handle, typename Row, typename PathOf>
QMap<QString, Handle *> byPath(std::vector<Handle> &handles, const std::vector<Row> &rows,
                               const PathOf &pathOf)
{
    // Sorting by number first leaves little to sort by text, because names are numbered in the
    // order of the file.
    std::vector<quint32> order(rows.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](quint32 a, quint32 b) { return isBefore(rows[a], rows[b]); });
    std::vector<std::pair<QString, Handle *>> entries;
    entries.reserve(rows.size());
    for (const quint32 row : order)
        entries.emplace_back(pathOf(rows[row]), &handles[row]);
    std::sort(entries.begin(), entries.end());
    QMap<QString, Handle *> map;
    const QString *last = nullptr;
    for (const auto &[path, handle] : entries) {
        if (!last || path != *last)
            map.insert(map.cend(), path, handle);
        last = &path;
    }
    return map;
}

} // namespace

NetlistData::NetlistData() = default;

NetlistData::~NetlistData() = default;

template<typename Handle, typename Row>
void NetlistData::makeHandles(std::vector<Handle> *handles, const std::vector<Row> &rows)
{
    handles->resize(rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        (*handles)[i].m_data = this;
        (*handles)[i].m_row = quint32(i);
    }
}

std::unique_ptr<Netlist> NetlistData::makeNetlist(std::unique_ptr<NetlistData> data)
{
    data->makeHandles(&data->m_nets, data->nets);
    data->makeHandles(&data->m_instances, data->instances);
    data->makeHandles(&data->m_ports, data->ports);
    data->portList.reserve(int(data->ports.size()));
    for (Port &port : data->m_ports)
        data->portList.append(&port);
    data->instanceList.reserve(int(data->instances.size()));
    for (Instance &instance : data->m_instances)
        data->instanceList.append(&instance);
    return std::unique_ptr<Netlist>(new Netlist(std::move(data)));
}

const NetlistData &NetlistData::of(const Netlist &netlist)
{
    return *netlist.d;
}

QString NetlistData::path(quint32 scope, quint32 name, qint32 bit) const
{
    // Composed backwards into a buffer that fits nearly every path.
    char number[16] = "[";
    size_t numberSize = 0;
    if (bit != SCALAR) {
        char *end = std::to_chars(number + 1, number + sizeof number - 1, bit).ptr;
        *end = ']';
        numberSize = size_t(end + 1 - number);
    }
    size_t size = names[name].size + numberSize;
    for (quint32 up = scope; up != NONE; up = instances[up].scope)
        size += names[instances[up].name].size + 1;

    char small[512];
    std::unique_ptr<char[]> large;
    char *buffer = small;
    if (size > sizeof small) {
        large.reset(new char[size]);
        buffer = large.get();
    }
    char *begin = buffer + size;
    const auto prepend = [&begin](std::string_view part) {
        begin -= part.size();
        std::copy(part.begin(), part.end(), begin);
    };
    prepend({number, numberSize});
    prepend(nameText(name));
    for (quint32 up = scope; up != NONE; up = instances[up].scope) {
        prepend("/");
        prepend(nameText(instances[up].name));
    }
    return QString::fromUtf8(buffer, int(size));
}

Instance *NetlistData::driver(quint32 net) const
{
    const quint32 row = nets[net].driver;
    return row == NONE ? nullptr : &m_instances[row];
}

Net *NetlistData::netOf(quint32 port) const
{
    const quint32 row = ports[port].net;
    return row == NONE ? nullptr : &m_nets[row];
}

const QMap<QString, Net *> &NetlistData::netMap() const
{
    std::call_once(m_netMapMade, [this] {
        m_netMap = byPath(m_nets, nets,
                          [this](const NetRow &row) { return path(row.scope, row.name, row.bit); });
    });
    return m_netMap;
}

const QMap<QString, Instance *> &NetlistData::instanceMap() const
{
    std::call_once(m_instanceMapMade, [this] {
        m_instanceMap = byPath(m_instances, instances, [this](const InstanceRow &row) {
            return path(row.scope, row.name, SCALAR);
        });
    });
    return m_instanceMap;
}

QString Instance::path() const
{
    const NetlistData::InstanceRow &row = m_data->instances[m_row];
    return m_data->path(row.scope, row.name, NetlistData::SCALAR);
}

int Instance::category() const
{
    return m_data->kind(m_row).category;
}

int Instance::primitive() const
{
    return m_data->kind(m_row).primitive;
}

QString Net::path() const
{
    const NetlistData::NetRow &row = m_data->nets[m_row];
    return m_data->path(row.scope, row.name, row.bit);
}

Instance *Net::driver() const
{
    return m_data->driver(m_row);
}

QString Port::path() const
{
    const NetlistData::PortRow &row = m_data->ports[m_row];
    return m_data->path(NetlistData::NONE, row.name, row.bit);
}

int Port::direction() const
{
    return m_data->ports[m_row].direction;
}

Net *Port::net() const
{
    return m_data->netOf(m_row);
}

Netlist::Netlist(std::unique_ptr<NetlistData> data)
    : d(std::move(data))
{
}

Netlist::~Netlist() = default;

QString Netlist::name() const
{
    return QString::fromUtf8(d->design);
}

const QList<Port *> &Netlist::ports() const
{
    return d->portList;
}

const QList<Instance *> &Netlist::instances() const
{
    return d->instanceList;
}

const QMap<QString, Net *> &Netlist::netMap() const
{
    return d->netMap();
}

const QMap<QString, Instance *> &Netlist::instanceMap() const
{
    return d->instanceMap();
}

} // namespace NlsData
