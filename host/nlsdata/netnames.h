#pragma once

#include "hostexport.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace NlsData {

class Instance;
class Net;
class Netlist;
class NetlistData;

/// All names of the nets of a netlist, through the hierarchy, and what the cells are. For a netlist
/// that was read with ReadOptions::allNames, which must outlive it. Paths are those of the
/// contract: joined by "/", with the bit. Calls from several threads at once are safe.
class HOST_EXPORT NetNames
{
public:
    /// Whether the netlist was read with its names.
    static bool areIn(const Netlist &netlist);

    explicit NetNames(const Netlist &netlist);
    ~NetNames();

    struct Names
    {
        QStringList given; ///< by the design: sorted, each once
        /// Made by the synthesis tool from the name, type and pin of a cell ("count_DFFE_Q_D"):
        /// they change as the cells do.
        QStringList fromCells;
        QStringList generated; ///< hidden ones ("$abc$12$n7")
    };
    Names names(const Net *net) const;

    /// All nets, in the order of the netlist.
    void forEachNet(const std::function<void(Net *)> &use) const;

    /// Nets have numbers, in the order of the netlist.
    quint32 netCount() const;
    Net *net(quint32 number) const;
    quint32 number(const Net *net) const;

    /// A name that a level of the hierarchy gives to one bit or to a vector of them.
    struct Vector
    {
        static constexpr quint32 CONSTANT = 0xfffffffe;

        const Instance *scope; ///< the module instance that has it; null at the top
        std::string_view name; ///< in UTF-8; valid as long as the netlist
        bool isVector;         ///< its bits have numbers, the lowest of which is `offset`
        qint32 offset;
        bool isUpwards; ///< the lowest bit has the highest number
        /// Numbers of the nets, from the lowest bit on; CONSTANT for a bit with a fixed value.
        const std::vector<quint32> &nets;
    };
    /// Calls `use` with all names of all nets, a level after those above it.
    void forEachVector(const std::function<void(const Vector &)> &use) const;

    /// Calls `use` with the module instances, in the order of the netlist, and the instance that
    /// each is in (null at the top) and its name there.
    void forEachModule(const std::function<void(const Instance *, const Instance *parent,
                                                std::string_view name)> &use) const;

    /// The net that has this name, at whatever level; null when there is none. The first is found
    /// when two are spelled alike, which takes an escaped name.
    Net *find(const QString &name) const;

    /// Whether the netlist has the name, of a net or of a bit with a constant value.
    bool has(const QString &name) const;

    /// Nets that the instance drives, in the order of the netlist. A module drives none, those
    /// inside it do.
    QList<Net *> drivenBy(const Instance *instance) const;

    /// Types of the cells that are no modules, sorted.
    QStringList cellTypes() const;

    QString cellType(const Instance *instance) const;

    /// Whether the instance is one of a module, also of one that synthesis has flattened.
    bool isModule(const Instance *instance) const;

    /// The module of a module instance, without what parameters add to its name; else empty.
    QString module(const Instance *instance) const;

    /// Where in the sources the instance is from, as the netlist has it ("rtl/core.v:12.5-14.8");
    /// empty when it does not say.
    QString source(const Instance *instance) const;

private:
    class CellPins;

    const NetlistData &m_data;
    const std::unique_ptr<CellPins> m_pins;
    std::vector<quint32> m_byDriver; ///< the driven nets, in the order of their drivers
};

} // namespace NlsData
