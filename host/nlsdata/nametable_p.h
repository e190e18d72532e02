#pragma once

#include "netlistdata_p.h"

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace NlsData {

struct ModulePlan;

/// The names of nets at all levels of the hierarchy. Names and their bits are stored once per
/// module. A copy of a module needs four bytes per bit: a slot, which links it in a ring with the
/// bits of any copy that are the same net.
class NameTable
{
public:
    static constexpr quint32 NONE = NetlistData::NONE;

    /// One name of a net, as the rows of NetlistData have it.
    struct Name
    {
        quint32 scope;
        quint32 name;
        qint32 bit;
        bool generated;
    };

    explicit NameTable(size_t modules)
        : m_modules(modules)
    {
    }

    // Built while the design is laid out.

    /// The names of a module; `firstName` is that of its first port, followed by nets and cells.
    void addModule(quint32 module, const ModulePlan &plan, quint32 firstName);
    /// Names of the cells' source positions, one per cell or none at all.
    void setSources(quint32 module, std::vector<quint32> sources);
    /// Adds a copy: `frame` has the net of each of its bits.
    void addCopy(quint32 module, quint32 scope, const quint32 *frame);
    /// After the last copy: links the slots of the same net. `root` maps joined nets of the frames
    /// to one of them.
    void link(const NetlistData &data, const std::function<quint32(quint32)> &root);

    // Queries, for the finished contents.

    /// Appends all names of a net, with duplicates if two are spelled alike.
    void collect(const NetlistData &data, quint32 net, std::vector<Name> *names) const;

    static constexpr quint32 CONSTANT = NONE - 1;

    /// The net named `path`, `CONSTANT` for a bit with a constant value instead of a net, or
    /// `NONE`.
    quint32 find(const NetlistData &data, std::string_view path) const;

    /// A name of a copy, with the nets of its bits, the lowest first: `CONSTANT` for fixed values.
    struct VectorRow
    {
        quint32 scope;
        quint32 name;
        qint32 offset;
        bool isVector;
        bool upto;
        const std::vector<quint32> &nets;
    };
    /// Calls `use` with every name of every copy, copies in the order of their scopes.
    void forEachVector(const NetlistData &data,
                       const std::function<void(const VectorRow &)> &use) const;

    /// The name with the source position of an instance, or none.
    quint32 source(const NetlistData &data, quint32 instance) const;

private:
    struct Vector
    {
        quint32 name;
        quint32 first; ///< in the module's bits
        quint32 count;
        qint32 offset;
        bool isVector;
        bool upto;
        bool generated;
        bool repeated; ///< the net of a port, which is listed as such
    };
    struct BitName
    {
        quint32 vector;
        quint32 place;
    };
    struct Module
    {
        quint32 firstName = NONE;
        quint32 firstCell = NONE; ///< name of the first cell
        std::vector<Vector> vectors;
        std::vector<quint32> bits;    ///< of the vectors, lowest first
        std::vector<quint32> first;   ///< by bit: its first name; one more than there are bits
        std::vector<BitName> names;   ///< in the order of the bits
        std::vector<quint32> sources; ///< by cell
        std::vector<quint32> byName;  ///< vectors in the order of their names' texts
    };
    struct Copy
    {
        quint32 scope;
        quint32 module;
        quint32 firstSlot;
    };

    const Copy &copyOf(quint32 scope) const;
    const Copy &copyAt(quint32 slot) const;
    std::pair<quint32, std::string_view> childKey(const NetlistData &data, quint32 copy) const;
    quint32 bitOf(const NetlistData::NetRow &net, const Copy &copy) const;
    quint32 netOf(const NetlistData &data, quint32 slot) const;
    quint32 findBelow(const NetlistData &data, const Copy &copy, std::string_view path) const;
    quint32 findIn(const NetlistData &data, const Copy &copy, std::string_view name) const;
    quint32 findVector(const NetlistData &data, const Module &module, std::string_view name) const;

    std::vector<Module> m_modules;
    std::vector<Copy> m_copies;      ///< by scope, that of the top module first
    std::vector<quint32> m_children; ///< all copies but the top one, by what childKey() gives
    std::vector<quint32> m_next;
};

} // namespace NlsData
