#include "check/names/designnames.h"

#include "config/environmentcodes.h"
#include "config/filenames.h"

#include <algorithm>

namespace Check {

namespace {

bool isOfKind(ObjectKind kind, const NlsData::Instance &instance)
{
    switch (kind) {
    case ObjectKind::Memory:
        return instance.category() == VLT::Environment::CATEGORY_BSRAM;
    case ObjectKind::FlipFlop:
        return instance.category() == VLT::Environment::CATEGORY_DFF;
    default:
        return kind == ObjectKind::Instance;
    }
}

int levels(const QString &name)
{
    return name.count(QLatin1Char('/')) + name.count(QLatin1Char('.'));
}

} // namespace

bool kindOfSection(const QString &section, ObjectKind *kind)
{
    const struct
    {
        const QString &section;
        ObjectKind kind;
    } kinds[] = {{VLT::NODE_NET, ObjectKind::Net},
                 {VLT::NODE_PORT, ObjectKind::Port},
                 {VLT::NODE_BSRAM, ObjectKind::Memory},
                 {VLT::NODE_INSTANCE, ObjectKind::FlipFlop},
                 {VLT::NODE_FILE, ObjectKind::Instance}};
    for (const auto &entry : kinds) {
        if (section != entry.section)
            continue;
        *kind = entry.kind;
        return true;
    }
    return false;
}

QString kindName(ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Net:
        return QStringLiteral("net");
    case ObjectKind::Port:
        return QStringLiteral("port");
    case ObjectKind::Memory:
        return QStringLiteral("block SRAM");
    case ObjectKind::FlipFlop:
        return QStringLiteral("flip-flop");
    default:
        return QStringLiteral("instance");
    }
}

QString DesignObject::path() const
{
    return net ? net->path() : port ? port->path() : instance ? instance->path() : QString();
}

QString plainSpelling(const QString &name)
{
    const auto isSeparator = [](QChar c) { return c == QLatin1Char('/') || c == QLatin1Char('.'); };
    QString plain;
    plain.reserve(name.size());
    for (int i = 0; i < name.size(); ++i) {
        const QChar c = name.at(i);
        const bool isFirst = i == 0 || isSeparator(name.at(i - 1));
        const bool isBeforeBits = i + 1 < name.size() && name.at(i + 1) == QLatin1Char('[');
        if ((c == QLatin1Char('\\') && isFirst) || (c == QLatin1Char(' ') && isBeforeBits))
            continue;
        plain += c == QLatin1Char('.') ? QLatin1Char('/') : c;
    }
    return plain;
}

DesignNames::DesignNames(const NlsData::Netlist &netlist)
    : m_netlist(netlist)
    , m_nets(netlist)
{
    for (NlsData::Port *port : netlist.ports()) {
        if (port->net())
            m_ports.insert(port->net(), port);
        m_portsByName.insert(port->path(), port);
    }
}

QString DesignNames::design() const
{
    return m_netlist.name();
}

void DesignNames::forEach(ObjectKind kind,
                          const std::function<void(const DesignObject &)> &use) const
{
    DesignObject object;
    switch (kind) {
    case ObjectKind::Net:
        m_nets.forEachNet([&](NlsData::Net *net) {
            object.net = net;
            use(object);
        });
        break;
    case ObjectKind::Port:
        for (NlsData::Port *port : m_netlist.ports()) {
            object.port = port;
            use(object);
        }
        break;
    default:
        for (NlsData::Instance *instance : m_netlist.instances()) {
            object.instance = instance;
            if (isOfKind(kind, *instance))
                use(object);
        }
    }
}

DesignObject DesignNames::find(ObjectKind kind, const QString &name) const
{
    DesignObject object;
    if (kind == ObjectKind::Net) {
        NlsData::Net *net = m_nets.find(name);
        object.net = net && net->path() == name ? net : nullptr; // not by another of its names
    } else if (kind == ObjectKind::Port) {
        object.port = m_portsByName.value(name);
    } else {
        std::call_once(m_instancesFound, [this] { m_instances.emplace(m_netlist.instances()); });
        object.instance = m_instances->find(
            name, [kind](const NlsData::Instance &instance) { return isOfKind(kind, instance); });
    }
    return object;
}

QMultiHash<QString, DesignObject> DesignNames::findSpelled(ObjectKind kind,
                                                           const QSet<QString> &spellings) const
{
    QMultiHash<QString, DesignObject> found;
    if (spellings.isEmpty())
        return found;
    forEach(kind, [&](const DesignObject &object) {
        const QString spelling = plainSpelling(object.path());
        if (spellings.contains(spelling))
            found.insert(spelling, object);
    });
    return found;
}

QMultiHash<QString, NlsData::Net *>
DesignNames::findSpelledNets(const QSet<QString> &spellings) const
{
    QMultiHash<QString, NlsData::Net *> found;
    if (spellings.isEmpty())
        return found;
    m_nets.forEachNet([&](NlsData::Net *net) {
        const QStringList names = m_nets.names(net).given;
        for (const QString &name : names) {
            const QString spelling = plainSpelling(name);
            if (spellings.contains(spelling) && !found.contains(spelling, net))
                found.insert(spelling, net);
        }
    });
    return found;
}

QVector<DesignObject> DesignNames::objectsOf(ObjectKind kind, NlsData::Net *net) const
{
    QVector<DesignObject> objects;
    DesignObject object;
    if (kind == ObjectKind::Net) {
        object.net = net;
        objects.append(object);
    } else if (kind == ObjectKind::Port) {
        for (auto it = m_ports.constFind(net); it != m_ports.constEnd() && it.key() == net; ++it) {
            object.port = *it;
            objects.append(object);
        }
    } else {
        object.instance = net->driver();
        if (object.instance && isOfKind(kind, *object.instance))
            objects.append(object);
    }
    return objects;
}

QVector<DesignObject> DesignNames::instancesOf(const QString &module) const
{
    std::call_once(m_modulesFound, [this] {
        for (NlsData::Instance *instance : m_netlist.instances()) {
            if (m_nets.isModule(instance))
                m_modules.insert(m_nets.module(instance), instance);
        }
    });
    QVector<DesignObject> objects;
    const QList<NlsData::Instance *> instances = m_modules.values(module);
    for (NlsData::Instance *instance : instances) {
        DesignObject object;
        object.instance = instance;
        objects.append(object);
    }
    return objects;
}

QSet<QString> DesignNames::identity(ObjectKind kind, const DesignObject &object) const
{
    if (kind == ObjectKind::Instance) {
        const QString module = m_nets.module(object.instance);
        return module.isEmpty() ? QSet<QString>() : QSet<QString>{module};
    }
    QList<NlsData::Net *> nets;
    if (object.instance)
        nets = m_nets.drivenBy(object.instance);
    else if (NlsData::Net *net = object.net ? object.net : object.port->net())
        nets.append(net);
    QSet<QString> identity;
    for (const NlsData::Net *net : qAsConst(nets)) {
        const QStringList names = m_nets.names(net).given;
        for (const QString &name : names)
            identity.insert(name);
    }
    return identity;
}

Meaning DesignNames::meaning(ObjectKind kind, const DesignObject &object) const
{
    Meaning meaning;
    meaning.names = identity(kind, object).values();
    std::sort(meaning.names.begin(), meaning.names.end(), [](const QString &a, const QString &b) {
        return std::pair(levels(a), a) < std::pair(levels(b), b);
    });
    meaning.names.erase(meaning.names.begin() + qMin(meaning.names.size(), MAXIMUM_NAMES),
                        meaning.names.end());
    if (object.instance) {
        meaning.type = m_nets.cellType(object.instance);
        meaning.source = m_nets.source(object.instance);
    }
    return meaning;
}

} // namespace Check
