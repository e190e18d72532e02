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

/// All names of the nets of a netlist, at all levels of the hierarchy, and the types of its cells.
/// The netlist must have been read with ReadOptions::allNames and outlive this object. Paths are
/// those of the contract: joined by "/", with the bit. Thread-safe.
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
        /// Derived by the synthesis tool from the name, type and pin of a cell ("count_DFFE_Q_D"):
        /// they change with the cells.
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

    /// The net that has this name, at any level; null if there is none. Returns the first if two
    /// are spelled alike, which takes an escaped name.
    Net *find(const QString &name) const;

    /// Whether the netlist has the name, of a net or of a bit with a constant value.
    bool has(const QString &name) const;

    /// Nets that the instance drives, in the order of the netlist. A module drives none; the
    /// instances inside it do.
    QList<Net *> drivenBy(const Instance *instance) const;

    /// Types of the cells that are not modules, sorted.
    QStringList cellTypes() const;

    QString cellType(const Instance *instance) const;

    /// Whether it is an instance of a module, including one that synthesis has flattened.
    bool isModule(const Instance *instance) const;

    /// The module of a module instance, without the parameters in its name; otherwise empty.
    QString module(const Instance *instance) const;

    /// The instance's position in the sources, as in the netlist ("rtl/core.v:12.5-14.8"); empty if
    /// the netlist has none.
    QString source(const Instance *instance) const;

private:
    class CellPins;

    const NetlistData &m_data;
    const std::unique_ptr<CellPins> m_pins;
    std::vector<quint32> m_byDriver; ///< the driven nets, in the order of their drivers
};

} // namespace NlsData
