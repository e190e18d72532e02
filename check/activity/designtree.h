#pragma once

#include <QHash>
#include <QString>

#include <string_view>
#include <vector>

namespace NlsData {
class Instance;
class NetNames;
class Netlist;
} // namespace NlsData

namespace Check {

/// Where the activity of a net comes from: what drives it.
enum class NetKind : quint8 { Input, FlipFlop, Memory, Pad, Logic, Undriven };
constexpr int NET_KINDS = 6;
constexpr NetKind ALL_NET_KINDS[NET_KINDS] = {NetKind::Input, NetKind::FlipFlop, NetKind::Memory,
                                              NetKind::Pad,   NetKind::Logic,    NetKind::Undriven};

QString netKindName(NetKind kind); ///< "input", "flip-flop", "memory", "pad", "logic", "undriven"

/// All names of a design's nets, taken apart at "." and "/", so that a level of the hierarchy and a
/// piece of a flattened name are the same. The netlist must outlive it.
class DesignTree
{
public:
    static constexpr quint32 NONE = 0xffffffff;
    static constexpr quint32 ROOT = 0;

    /// A name of bits at its node: that of the name without bit numbers.
    struct Vector
    {
        std::string_view name; ///< as the netlist has it in its scope
        quint32 node;
        quint32 scope;    ///< the module instance that it is in, also of a flattened one
        quint32 level;    ///< the module instance whose name it is in the netlist
        quint32 next;     ///< another one at the node, or NONE
        quint32 firstNet; ///< of its nets
        quint32 count;
        qint32 offset; ///< number of the lowest bit
        bool hasNumbers;
        bool isUpwards;
    };
    /// A module instance; the first one is the top. Those inside follow it.
    struct Scope
    {
        const NlsData::Instance *instance; ///< null for the top
        quint32 node;
        quint32 parent;
        quint32 end; ///< the first one behind it that is not inside
        quint32 firstVector;
    };

    DesignTree(const NlsData::Netlist &netlist, const NlsData::NetNames &names);

    /// The node of a name below `node`; NONE when there is none.
    quint32 find(quint32 node, std::string_view path) const;
    quint32 parent(quint32 node) const { return m_nodes[node].parent; }
    std::string_view segment(quint32 node) const;
    /// The chain of nodes called so: the first one, and the next.
    quint32 firstCalled(std::string_view segment) const;
    quint32 nextCalled(quint32 node) const { return m_nodes[node].next; }

    quint32 firstVector(quint32 node) const { return m_nodes[node].vector; }
    const Vector &vector(quint32 index) const { return m_vectors[index]; }
    /// Number of the net at a place from the lowest bit; NONE or more than there are for a
    /// constant.
    quint32 net(const Vector &vector, quint32 place) const
    {
        return m_nets[vector.firstNet + place];
    }

    const std::vector<Scope> &scopes() const { return m_scopes; }
    /// The scope at that node; NONE when it is no instance.
    quint32 scopeAt(quint32 node) const { return m_nodes[node].scope; }
    quint32 vectorEnd(quint32 scope) const;
    /// Path of a scope; empty for the top.
    QString path(quint32 scope) const;
    /// The scope of a module instance with that path; the top for an empty one. NONE without one.
    quint32 findScope(const QString &path) const;

    quint32 netCount() const { return quint32(m_kinds.size()); }
    NetKind kind(quint32 net) const { return m_kinds[net]; }
    bool isConstant(quint32 net) const { return m_constant[net]; }
    /// Whether the net is an input of the design, or what an input pad makes of it.
    bool isFromInput(quint32 net) const { return m_kinds[net] == NetKind::Input || m_fromPad[net]; }
    /// The innermost instance that the net's path is in.
    quint32 scopeOf(quint32 net) const { return m_scopeOfNet[net]; }
    QString netPath(quint32 net) const;

private:
    struct Node
    {
        std::string_view text;
        quint32 parent;
        quint32 vector;
        quint32 scope;
        quint32 next;
    };

    quint32 child(quint32 node, std::string_view text) const;
    quint32 addPath(quint32 node, std::string_view path);
    size_t placeOf(quint32 node, std::string_view text) const;
    void grow();
    using Levels = QHash<const NlsData::Instance *, quint32>; ///< number of a module instance
    Levels addScopes();
    void addVectors(const Levels &levels);
    void orderScopes();
    void placeVectors(const std::vector<quint32> &places);
    void indexCalled();
    void addNets(const NlsData::Netlist &netlist);

    const NlsData::NetNames &m_names;
    std::vector<Node> m_nodes;
    std::vector<quint32> m_table;  ///< nodes by parent and text
    std::vector<quint32> m_called; ///< the first nodes by text
    std::vector<Vector> m_vectors; ///< in the order of their scopes
    std::vector<quint32> m_nets;   ///< of the vectors
    std::vector<Scope> m_scopes;
    std::vector<NetKind> m_kinds;
    std::vector<bool> m_constant;
    std::vector<bool> m_fromPad; ///< driven by an input or bidirectional pad
    std::vector<quint32> m_scopeOfNet;
};

/// Splits a name at "." and "/", leaving out empty pieces and a leading backslash of each.
template<typename Use>
void forEachSegment(std::string_view path, const Use &use)
{
    while (!path.empty()) {
        const size_t end = path.find_first_of("./");
        std::string_view piece = path.substr(0, end);
        if (piece.size() > 1 && piece.front() == '\\')
            piece.remove_prefix(1);
        while (!piece.empty() && piece.back() == ' ')
            piece.remove_suffix(1);
        if (!piece.empty())
            use(piece);
        path = end == std::string_view::npos ? std::string_view() : path.substr(end + 1);
    }
}

} // namespace Check
