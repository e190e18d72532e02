#include "check/designinput.h"

#include "nlsdata/netlist.h"

namespace Check {

NameIndex::NameIndex(const NlsData::Netlist &netlist, const QSet<QString> &names)
{
    if (names.isEmpty())
        return;
    m_objects.reserve(names.size());
    for (NlsData::Port *port : netlist.ports()) {
        const QString path = port->path();
        if (names.contains(path))
            m_objects[path].port = port;
    }
    for (NlsData::Instance *instance : netlist.instances()) {
        const QString path = instance->path();
        if (names.contains(path))
            m_objects[path].instance = instance;
    }
    const QMap<QString, NlsData::Net *> &nets = netlist.netMap();
    for (const QString &name : names) {
        if (NlsData::Net *net = nets.value(name))
            m_objects[name].net = net;
    }
}

} // namespace Check
