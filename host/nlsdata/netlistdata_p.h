#pragma once

#include "hostexport.h"

#include "host/utils/filewatcher.h"

#include "nlsdata/netlist.h"

#include <QByteArray>

#include <limits>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

namespace NlsData {

class NameTable;

/// The contents of a netlist: one row per object and one handle per row, all sized once. Names are
/// separate, so that the bits of a vector and the copies of a module share them.
class HOST_EXPORT NetlistData
{
public:
    static constexpr quint32 NONE = 0xffffffff;
    static constexpr qint32 SCALAR = std::numeric_limits<qint32>::min();

    /// A name's bytes in `text`, in UTF-8.
    struct Name
    {
        quint32 begin;
        quint32 size;
    };
    struct NetRow
    {
        quint32 scope; ///< the instance that it is in, or none at the top
        quint32 name;
        qint32 bit;     ///< its number in the vector, or scalar
        quint32 driver; ///< an instance, or none
    };
    struct InstanceRow
    {
        quint32 scope;
        quint32 name;
        quint32 kind;
    };
    struct PortRow
    {
        quint32 name;
        qint32 bit;
        quint32 net; ///< or none
        quint8 direction;
    };
    struct Kind
    {
        QByteArray type;
        int category = 0;
        int primitive = 0;
        bool isModule = false; ///< a module with contents, or what stands for a flattened one
        bool isKnown = false;  ///< in a cell library
        std::vector<QByteArray> pins; ///< only with `allNames`
    };

    NetlistData();
    ~NetlistData();

    /// Creates the handles, and the netlist over these contents.
    static std::unique_ptr<Netlist> makeNetlist(std::unique_ptr<NetlistData> data);
    static const NetlistData &of(const Netlist &netlist);
    static const NetlistData &of(const Net &net) { return *net.m_data; }

    std::string_view nameText(quint32 name) const
    {
        return {text.data() + names[name].begin, names[name].size};
    }
    QString path(quint32 scope, quint32 name, qint32 bit) const;

    const Kind &kind(quint32 instance) const { return kinds[instances[instance].kind]; }
    Instance *driver(quint32 net) const;
    Net *netOf(quint32 port) const;
    Net *net(quint32 row) const { return &m_nets[row]; }
    /// Null for none.
    Instance *instance(quint32 row) const { return row == NONE ? nullptr : &m_instances[row]; }
    static quint32 row(const Net &net) { return net.m_row; }
    static quint32 row(const Instance &instance) { return instance.m_row; }

    /// Built at the first call.
    const QMap<QString, Net *> &netMap() const;
    const QMap<QString, Instance *> &instanceMap() const;

    QString file; ///< that it was read from; empty when it was a text
    Utils::FileStamp fileStamp;
    QByteArray design;
    std::vector<char> text;
    std::vector<Name> names;
    std::vector<Kind> kinds;
    std::vector<NetRow> nets;
    std::vector<InstanceRow> instances;
    std::vector<PortRow> ports;
    std::unique_ptr<NameTable> allNames;                      ///< null unless asked for
    std::vector<std::pair<quint32, QByteArray>> scopeModules; ///< of flattened ones, by cell's name

    QList<Port *> portList;
    QList<Instance *> instanceList;

private:
    template<typename Handle, typename Row>
    void makeHandles(std::vector<Handle> *handles, const std::vector<Row> &rows);

    // A netlist's objects point into these; they never grow.
    mutable std::vector<Net> m_nets;
    mutable std::vector<Instance> m_instances;
    std::vector<Port> m_ports;
    mutable std::once_flag m_netMapMade;
    mutable std::once_flag m_instanceMapMade;
    mutable QMap<QString, Net *> m_netMap;
    mutable QMap<QString, Instance *> m_instanceMap;
};

} // namespace NlsData
