#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <cstdint>
#include <cstdlib>

/// Reads any bytes as a netlist, and uses all of what comes out.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    NlsData::ReadOptions options;
    options.limits.objects = 20000;
    options.limits.depth = 32;
    QString error;
    const std::unique_ptr<NlsData::Netlist> netlist = NlsData::readNetlistText(
        {reinterpret_cast<const char *>(data), size}, QStringLiteral("input"), &error, options);
    if (bool(netlist) != error.isEmpty())
        std::abort();
    if (!netlist)
        return 0;

    int used = netlist->name().size();
    for (const NlsData::Port *port : netlist->ports()) {
        used += port->path().size() + port->direction();
        if (const NlsData::Net *net = port->net())
            used += net->path().size();
    }
    for (const NlsData::Instance *instance : netlist->instances())
        used += instance->path().size() + instance->category() + instance->primitive();
    for (const NlsData::Net *net : netlist->netMap()) {
        if (const NlsData::Instance *driver = net->driver())
            used += driver->path().size();
    }
    used += netlist->instanceMap().size();
    return used < 0 ? -1 : 0;
}
