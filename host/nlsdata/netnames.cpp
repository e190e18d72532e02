#include "netnames.h"

#include "nametable_p.h"
#include "netlistdata_p.h"

#include "nlsdata/netlist.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace NlsData {

namespace {

std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), size_t(bytes.size())};
}

void sortOut(QStringList *names)
{
    std::sort(names->begin(), names->end());
    names->erase(std::unique(names->begin(), names->end()), names->end());
}

} // namespace

/// The types and pins of the cells, to recognize the names that synthesis derives from them:
/// NET_TYPE_PIN for a cell, CELL_PIN for a net at its pins, each with "_1", "_2"… if that is taken.
class NetNames::CellPins
{
public:
    explicit CellPins(const std::vector<NetlistData::Kind> &kinds)
    {
        for (const NetlistData::Kind &kind : kinds) {
            if (kind.isModule)
                continue;
            for (const QByteArray &pin : kind.pins) {
                m_types[view(kind.type)].insert(view(pin));
                m_pins.insert(view(pin));
            }
        }
    }

    bool isMadeFromCell(std::string_view net) const
    {
        return forEachPin(net, [&](std::string_view cell, std::string_view netPin) {
            return forEachPin(cell, [&](std::string_view typed, std::string_view cellPin) {
                return isTyped(typed, cellPin, netPin);
            });
        });
    }

private:
    using Pins = std::unordered_set<std::string_view>;

    static std::string_view withoutNumber(std::string_view name)
    {
        const size_t end = name.find_last_not_of("0123456789");
        const bool isNumbered =
            end != std::string_view::npos && end + 1 < name.size() && name[end] == '_';
        return isNumbered ? name.substr(0, end) : name;
    }

    /// Calls `use` with every way to read `name` as REST_PIN, until one returns true.
    template<typename Use>
    bool forEachPin(std::string_view name, const Use &use) const
    {
        const auto inWhole = [&](std::string_view whole) {
            for (size_t i = whole.rfind('_'); i != std::string_view::npos && i > 0;
                 i = whole.rfind('_', i - 1)) {
                if (m_pins.count(whole.substr(i + 1)) &&
                    use(whole.substr(0, i), whole.substr(i + 1)))
                    return true;
            }
            return false;
        };
        const std::string_view plain = withoutNumber(name);
        return inWhole(name) || (plain.size() < name.size() && inWhole(plain));
    }

    bool isTyped(std::string_view typed, std::string_view pin, std::string_view otherPin) const
    {
        for (size_t i = typed.rfind('_'); i != std::string_view::npos && i > 0;
             i = typed.rfind('_', i - 1)) {
            const auto type = m_types.find(typed.substr(i + 1));
            if (type != m_types.end() && type->second.count(pin) && type->second.count(otherPin))
                return true;
        }
        return false;
    }

    std::unordered_map<std::string_view, Pins> m_types;
    Pins m_pins;
};

bool NetNames::areIn(const Netlist &netlist)
{
    return NetlistData::of(netlist).allNames != nullptr;
}

NetNames::NetNames(const Netlist &netlist)
    : m_data(NetlistData::of(netlist))
    , m_pins(new CellPins(m_data.kinds))
{
    for (quint32 net = 0; net < m_data.nets.size(); ++net) {
        if (m_data.nets[net].driver != NetlistData::NONE)
            m_byDriver.push_back(net);
    }
    std::stable_sort(m_byDriver.begin(), m_byDriver.end(), [this](quint32 a, quint32 b) {
        return m_data.nets[a].driver < m_data.nets[b].driver;
    });
}

NetNames::~NetNames() = default;

NetNames::Names NetNames::names(const Net *net) const
{
    std::vector<NameTable::Name> rows;
    m_data.allNames->collect(m_data, NetlistData::row(*net), &rows);
    Names names;
    for (const NameTable::Name &row : rows) {
        QStringList &list = row.generated                                       ? names.generated
                            : m_pins->isMadeFromCell(m_data.nameText(row.name)) ? names.fromCells
                                                                                : names.given;
        list.append(m_data.path(row.scope, row.name, row.bit));
    }
    for (QStringList *list : {&names.given, &names.fromCells, &names.generated})
        sortOut(list);
    return names;
}

void NetNames::forEachNet(const std::function<void(Net *)> &use) const
{
    for (quint32 net = 0; net < m_data.nets.size(); ++net)
        use(m_data.net(net));
}

quint32 NetNames::netCount() const
{
    return quint32(m_data.nets.size());
}

Net *NetNames::net(quint32 number) const
{
    return m_data.net(number);
}

quint32 NetNames::number(const Net *net) const
{
    return NetlistData::row(*net);
}

void NetNames::forEachVector(const std::function<void(const Vector &)> &use) const
{
    static_assert(Vector::CONSTANT == NameTable::CONSTANT);
    m_data.allNames->forEachVector(m_data, [&](const NameTable::VectorRow &row) {
        use({m_data.instance(row.scope), m_data.nameText(row.name), row.isVector, row.offset,
             row.upto, row.nets});
    });
}

void NetNames::forEachModule(
    const std::function<void(const Instance *, const Instance *, std::string_view)> &use) const
{
    for (quint32 row = 0; row < m_data.instances.size(); ++row) {
        if (!m_data.kind(row).isModule)
            continue;
        const NetlistData::InstanceRow &instance = m_data.instances[row];
        use(m_data.instance(row), m_data.instance(instance.scope), m_data.nameText(instance.name));
    }
}

Net *NetNames::find(const QString &name) const
{
    const quint32 net = m_data.allNames->find(m_data, view(name.toUtf8()));
    return net == NameTable::NONE || net == NameTable::CONSTANT ? nullptr : m_data.net(net);
}

bool NetNames::has(const QString &name) const
{
    return m_data.allNames->find(m_data, view(name.toUtf8())) != NameTable::NONE;
}

QList<Net *> NetNames::drivenBy(const Instance *instance) const
{
    const quint32 row = NetlistData::row(*instance);
    QList<Net *> nets;
    const auto first = std::partition_point(m_byDriver.begin(), m_byDriver.end(), [&](quint32 net) {
        return m_data.nets[net].driver < row;
    });
    for (auto it = first; it != m_byDriver.end() && m_data.nets[*it].driver == row; ++it)
        nets.append(m_data.net(*it));
    return nets;
}

QStringList NetNames::cellTypes() const
{
    QStringList types;
    for (const NetlistData::Kind &kind : m_data.kinds) {
        if (!kind.isModule)
            types.append(QString::fromUtf8(kind.type));
    }
    sortOut(&types);
    return types;
}

QString NetNames::cellType(const Instance *instance) const
{
    return QString::fromUtf8(m_data.kind(NetlistData::row(*instance)).type);
}

bool NetNames::isModule(const Instance *instance) const
{
    return m_data.kind(NetlistData::row(*instance)).isModule;
}

QString NetNames::module(const Instance *instance) const
{
    if (!isModule(instance))
        return QString();
    const quint32 name = m_data.instances[NetlistData::row(*instance)].name;
    const auto &scopes = m_data.scopeModules;
    const auto scope =
        std::lower_bound(scopes.begin(), scopes.end(), name,
                         [](const auto &entry, quint32 wanted) { return entry.first < wanted; });
    QString module = scope != scopes.end() && scope->first == name
                         ? QString::fromUtf8(scope->second)
                         : cellType(instance);
    // "$paramod\uart\WIDTH=8" or, if that would be long, "$paramod$0123abcd\uart".
    if (module.startsWith(QLatin1String("$paramod")))
        module = module.section(QLatin1Char('\\'), 1, 1);
    return module;
}

QString NetNames::source(const Instance *instance) const
{
    const quint32 name = m_data.allNames->source(m_data, NetlistData::row(*instance));
    if (name == NetlistData::NONE)
        return QString();
    const std::string_view text = m_data.nameText(name);
    return QString::fromUtf8(text.data(), int(text.size()));
}

} // namespace NlsData
